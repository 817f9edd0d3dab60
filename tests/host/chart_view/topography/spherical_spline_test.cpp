// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/spherical_spline.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace {

using namespace orvanta::chart;
using Points = std::vector<HeadPosition>;

/// Vertex, right, left, front, back and one between vertex and right.
const Points kSix = {{0, 0, 1}, {1, 0, 0}, {-1, 0, 0}, {0, 1, 0}, {0, -1, 0}, {0.6, 0, 0.8}};
const std::vector<float> kValues = {1, 2, -1, 0.5F, 3, 1.5F};

std::vector<float> FieldAt(const Points& electrodes, const std::vector<float>& values, const Points& points) {
    const SplineWeights weights = SphericalSpline(electrodes).WeightsAt(points);
    std::vector<float> field(points.size());
    Interpolate(weights, values, field);
    return field;
}

/// The vertex and rings of 5, 8 and 12 electrodes 30°, 55° and 80° from it.
Points Rings() {
    struct Ring {
        double angle;
        int count;
        double turn;
    };
    Points electrodes;
    for (const Ring& ring : {Ring{0, 1, 0}, Ring{30, 5, 0.1}, Ring{55, 8, 0.2}, Ring{80, 12, 0}}) {
        const double angle = ring.angle * std::numbers::pi / 180;
        for (int i = 0; i < ring.count; ++i) {
            const double around = 2 * std::numbers::pi * i / ring.count + ring.turn;
            electrodes.push_back(
                {std::sin(angle) * std::cos(around), std::sin(angle) * std::sin(around), std::cos(angle)});
        }
    }
    return electrodes;
}

TEST(SplineKernel, IsTheSumOfLegendrePolynomials) {
    // SciPy: sum of (2n + 1) / (n (n + 1))^4 eval_legendre(n, x) up to n = 200, over 4π.
    EXPECT_NEAR(SplineKernel(1), 0.015260761698567602, 2e-11);
    EXPECT_NEAR(SplineKernel(0.5), 0.007409185638551253, 2e-11);
    EXPECT_NEAR(SplineKernel(0), -0.0001519196990414111, 2e-11);
    EXPECT_NEAR(SplineKernel(-0.5), -0.007488321848065939, 2e-11);
    EXPECT_NEAR(SplineKernel(-1), -0.014636986154201878, 2e-11);
}

TEST(SphericalSpline, AgreesWithTheSystemSolvedInSciPy) {
    const auto field = FieldAt(kSix, kValues, {{0, 0.6, 0.8}, {0.48, 0.6, 0.64}, {0, 0, -1}});
    EXPECT_NEAR(field[0], 0.47489244, 1e-6);
    EXPECT_NEAR(field[1], 0.95978813, 1e-6);
    EXPECT_NEAR(field[2], 1.38022022, 1e-6);
}

TEST(SphericalSpline, HasTheElectrodesValueThere) {
    const auto field = FieldAt(kSix, kValues, kSix);
    for (std::size_t i = 0; i < kSix.size(); ++i) {
        EXPECT_NEAR(field[i], kValues[i], 0.01) << i;
    }
}

TEST(SphericalSpline, PredictsASmoothFieldWhereAnElectrodeIsLeftOut) {
    const Points all = Rings();
    const auto truth = [](const HeadPosition& p) { return 2 + p.x + 0.5 * p.y * p.z - p.z * p.z; };
    double squares = 0;
    for (std::size_t left = 0; left < all.size(); ++left) {
        Points others;
        std::vector<float> values;
        for (std::size_t i = 0; i < all.size(); ++i) {
            if (i != left) {
                others.push_back(all[i]);
                values.push_back(static_cast<float>(truth(all[i])));
            }
        }
        squares += std::pow(FieldAt(others, values, {all[left]})[0] - truth(all[left]), 2);
    }
    // The same in SciPy: 0.014908335375072218.
    EXPECT_NEAR(std::sqrt(squares / static_cast<double>(all.size())), 0.014908335375072218, 1e-5);
}

TEST(SphericalSpline, TurnsWithTheElectrodes) {
    Points turned;
    for (const HeadPosition& p : kSix) {
        turned.push_back({-p.y, p.x, p.z});
    }
    const float before = FieldAt(kSix, kValues, {{0.48, 0.6, 0.64}})[0];
    EXPECT_NEAR(FieldAt(turned, kValues, {{-0.6, 0.48, 0.64}})[0], before, 1e-6);
}

TEST(SphericalSpline, IsMirroredWithTheElectrodes) {
    Points mirrored;
    for (const HeadPosition& p : kSix) {
        mirrored.push_back({-p.x, p.y, p.z});
    }
    const float before = FieldAt(kSix, kValues, {{0.48, 0.6, 0.64}})[0];
    EXPECT_NEAR(FieldAt(mirrored, kValues, {{-0.48, 0.6, 0.64}})[0], before, 1e-6);
}

TEST(SphericalSpline, KeepsEqualValuesEqualEverywhere) {
    const auto field = FieldAt(kSix, {3, 3, 3, 3, 3, 3}, {{0, 0, -1}, {0.48, 0.6, 0.64}, {0, 1, 0}});
    for (const float value : field) {
        EXPECT_NEAR(value, 3, 1e-5);
    }
}

TEST(SphericalSpline, OfOneElectrodeIsConstant) {
    EXPECT_NEAR(FieldAt({{1, 0, 0}}, {7}, {{-1, 0, 0}})[0], 7, 1e-5);
}

TEST(SphericalSpline, OfTwoElectrodesLiesInTheMiddleBetweenThem) {
    EXPECT_NEAR(FieldAt({{1, 0, 0}, {-1, 0, 0}}, {2, 4}, {{0, 0, 1}})[0], 3, 1e-5);
}

TEST(SphericalSpline, TakesTheMeanOfElectrodesAtOnePlace) {
    Points electrodes = kSix;
    electrodes.push_back(kSix[0]);
    std::vector<float> values = kValues;
    values.push_back(3); // beside 1
    EXPECT_NEAR(FieldAt(electrodes, values, {kSix[0]})[0], 2, 0.02);
}

TEST(SphericalSpline, WithoutElectrodesHasNoWeights) {
    const SplineWeights weights = SphericalSpline({}).WeightsAt(kSix);
    EXPECT_EQ(weights.electrodes, 0U);
    EXPECT_EQ(weights.Points(), 0U);
}

TEST(SphericalSpline, LooksAtDirectionsOnly) {
    Points far = kSix;
    for (HeadPosition& p : far) {
        p = {p.x * 90, p.y * 90, p.z * 90}; // as in millimetres
    }
    EXPECT_NEAR(FieldAt(far, kValues, {{0, 6, 8}})[0], 0.47489244, 1e-6);
}

TEST(Interpolate, MakesTheFieldsOfSeveralMaps) {
    const SplineWeights weights{2, {0.5F, 0.5F, 1, 0, 0.25F, 0.75F}}; // three points
    std::vector<float> fields(6);
    Interpolate(weights, std::vector<float>{2, 4, 10, 0}, fields);
    EXPECT_EQ(fields, (std::vector<float>{3, 2, 3.5F, 5, 10, 2.5F}));
}

} // namespace
