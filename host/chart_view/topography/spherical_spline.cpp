// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/spherical_spline.h"

#include "host/chart_view/topography/row_bands.h"

#include <Eigen/Dense>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace orvanta::chart {

namespace {

constexpr int kOrder = 4;
constexpr double kRegularisation = 1e-5;
/// The terms from here on add up to less than 1e-9 of the kernel.
constexpr int kTerms = 36;
/// Points whose weights are solved for at a time.
constexpr Eigen::Index kBlock = 512;

using Matrix = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;
using Row = Eigen::Array<double, 1, Eigen::Dynamic>;
using FloatMatrix = Eigen::Matrix<float, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;

/// Factors of the Legendre polynomials, from n = 0.
const std::array<double, kTerms + 1>& Factors() {
    static const std::array<double, kTerms + 1> factors = [] {
        std::array<double, kTerms + 1> made{};
        for (int n = 1; n <= kTerms; ++n) {
            const double product = static_cast<double>(n) * (n + 1);
            made[static_cast<std::size_t>(n)] =
                (2 * n + 1) / std::pow(product, kOrder) / (4 * std::numbers::pi);
        }
        return made;
    }();
    return factors;
}

HeadPosition OnSphere(const HeadPosition& position) {
    const double length = std::hypot(position.x, position.y, position.z);
    if (!(length > 0) || !std::isfinite(length)) {
        return {0, 0, 1};
    }
    return {position.x / length, position.y / length, position.z / length};
}

/// From cosines to kernels, with Clenshaw's sum: (n + 1) P(n+1) = (2n + 1) x P(n) - n P(n-1).
void ToKernels(Row& values) {
    const auto& factors = Factors();
    Row next = Row::Zero(values.size());
    Row afterNext = next;
    Row here(values.size());
    for (int n = kTerms; n >= 1; --n) {
        here = factors[static_cast<std::size_t>(n)] + (2.0 * n + 1) / (n + 1) * values * next -
               (n + 1.0) / (n + 2) * afterNext;
        afterNext.swap(next);
        next.swap(here);
    }
    values = values * next - afterNext / 2;
}

/// Of every electrode as seen from the point; all of them on the unit sphere.
Row KernelsAt(const HeadPosition& point, std::span<const HeadPosition> electrodes) {
    Row values(static_cast<Eigen::Index>(electrodes.size()));
    for (std::size_t i = 0; i < electrodes.size(); ++i) {
        const HeadPosition& electrode = electrodes[i];
        const double cosine = point.x * electrode.x + point.y * electrode.y + point.z * electrode.z;
        values(static_cast<Eigen::Index>(i)) = std::clamp(cosine, -1.0, 1.0);
    }
    ToKernels(values);
    return values;
}

} // namespace

double SplineKernel(double cosine) {
    Row value = Row::Constant(1, cosine);
    ToKernels(value);
    return value(0);
}

SphericalSpline::SphericalSpline(std::span<const HeadPosition> electrodes) {
    electrodes_.reserve(electrodes.size());
    std::transform(electrodes.begin(), electrodes.end(), std::back_inserter(electrodes_), OnSphere);
    const auto n = static_cast<Eigen::Index>(electrodes_.size());
    if (n == 0) {
        return;
    }
    // The coefficients of the kernels and the constant; the coefficients add up to 0.
    Matrix system = Matrix::Ones(n + 1, n + 1);
    for (Eigen::Index i = 0; i < n; ++i) {
        system.row(i).head(n) = KernelsAt(electrodes_[static_cast<std::size_t>(i)], electrodes_).matrix();
        system(i, i) += kRegularisation;
    }
    system(n, n) = 0;
    const Matrix inverse = system.partialPivLu().inverse();
    solution_.resize(static_cast<std::size_t>((n + 1) * n));
    Eigen::Map<Matrix>(solution_.data(), n + 1, n) = inverse.leftCols(n);
}

SplineWeights SphericalSpline::WeightsAt(std::span<const HeadPosition> points) const {
    const auto n = static_cast<Eigen::Index>(electrodes_.size());
    const auto count = static_cast<Eigen::Index>(points.size());
    SplineWeights weights{electrodes_.size(), std::vector<float>(points.size() * electrodes_.size())};
    const Eigen::Map<const Matrix> solution(solution_.data(), n == 0 ? 0 : n + 1, n);
    Eigen::Map<FloatMatrix> rows(weights.rows.data(), count, n);
    Matrix kernels;
    for (Eigen::Index first = 0; n > 0 && first < count; first += kBlock) {
        const Eigen::Index block = std::min(kBlock, count - first);
        kernels = Matrix::Ones(block, n + 1);
        for (Eigen::Index i = 0; i < block; ++i) {
            const HeadPosition point = OnSphere(points[static_cast<std::size_t>(first + i)]);
            kernels.row(i).head(n) = KernelsAt(point, electrodes_).matrix();
        }
        rows.middleRows(first, block) = (kernels * solution).cast<float>();
    }
    return weights;
}

void Interpolate(const SplineWeights& weights, std::span<const float> values, std::span<float> fields) {
    if (weights.electrodes == 0) {
        return;
    }
    const auto n = static_cast<Eigen::Index>(weights.electrodes);
    const auto points = static_cast<Eigen::Index>(weights.Points());
    const auto maps = static_cast<Eigen::Index>(values.size()) / n;
    const Eigen::Map<const FloatMatrix> rows(weights.rows.data(), points, n);
    const Eigen::Map<const FloatMatrix> electrodes(values.data(), maps, n);
    Eigen::Map<FloatMatrix> result(fields.data(), maps, points);
    constexpr int kLeastPoints = 2048; // a multiple of what is summed up together: the sums stay the same
    ForRowBands(static_cast<int>(points), kLeastPoints, [&](int first, int last) {
        result.middleCols(first, last - first).noalias() =
            electrodes * rows.middleRows(first, last - first).transpose();
    });
}

} // namespace orvanta::chart
