// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/statistics/regression.h"

#include "host/spectral_data/not_computable.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <vector>

namespace orvanta::spectral {

namespace {

/// Deviations from the mean; all exactly 0 when the values are equal, which a rounded mean would not give.
std::vector<double> Centred(const std::vector<double>& values) {
    const auto [low, high] = std::minmax_element(values.begin(), values.end());
    if (low == values.end() || *low == *high) {
        return std::vector<double>(values.size(), 0.0);
    }
    const auto count = static_cast<double>(values.size());
    const double origin = *low;
    double mean = 0;
    for (const double value : values) {
        mean += (value - origin) / count;
    }
    std::vector<double> centred;
    centred.reserve(values.size());
    for (const double value : values) {
        centred.push_back((value - origin) - mean);
    }
    return centred;
}

double Dot(const std::vector<double>& a, const std::vector<double>& b) {
    double sum = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        sum += a[i] * b[i];
    }
    return sum;
}

} // namespace

Line FitLine(std::span<const double> x, std::span<const double> y) {
    if (x.size() != y.size()) {
        throw std::invalid_argument("FitLine: x and y differ in length");
    }
    std::vector<double> keptX, keptY;
    for (std::size_t i = 0; i < x.size(); ++i) {
        if (std::isfinite(x[i]) && std::isfinite(y[i])) {
            keptX.push_back(x[i]);
            keptY.push_back(y[i]);
        }
    }
    Line line{kNaN, kNaN, kNaN, keptX.size()};
    if (keptX.size() < 2) {
        return line;
    }
    const std::vector<double> dx = Centred(keptX);
    const std::vector<double> dy = Centred(keptY);
    const double xx = Dot(dx, dx);
    const double yy = Dot(dy, dy);
    const double xy = Dot(dx, dy);
    if (xx > 0) {
        line.slope = xy / xx;
        // Through the centre of gravity, found from the first pair and its deviations.
        line.intercept = (keptY[0] - dy[0]) - line.slope * (keptX[0] - dx[0]);
        if (yy > 0) {
            line.r = std::clamp(xy / std::sqrt(xx) / std::sqrt(yy), -1.0, 1.0);
        }
    }
    return line;
}

} // namespace orvanta::spectral
