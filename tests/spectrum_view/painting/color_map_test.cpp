// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/color_map.h"

#include "tests/spectrum_view/painting/color_vision.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;

/// Of 8 bits in sRGB.
double Linear(std::uint8_t level) {
    const double v = level / 255.0;
    return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
}

/// Distance of two colours in OKLab (Ottosson 2020).
double OkLabDistance(owl::TColor x, owl::TColor y) {
    const auto labOf = [](owl::TColor color) {
        const double r = Linear(owl::Red(color));
        const double g = Linear(owl::Green(color));
        const double b = Linear(owl::Blue(color));
        const double l = std::cbrt(0.4122214708 * r + 0.5363325363 * g + 0.0514459929 * b);
        const double m = std::cbrt(0.2119034982 * r + 0.6806995451 * g + 0.1073969566 * b);
        const double s = std::cbrt(0.0883024619 * r + 0.2817188376 * g + 0.6299787005 * b);
        return test::Lab{0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
                         1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
                         0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
    };
    const test::Lab a = labOf(x);
    const test::Lab b = labOf(y);
    return std::hypot(a.l - b.l, a.a - b.a, a.b - b.b);
}

TEST(ColorMap, GoesFromDarkVioletToLightYellow) {
    EXPECT_EQ(ColorMap().front(), owl::Rgb(28, 14, 64));
    EXPECT_EQ(ColorMap().back(), owl::Rgb(250, 238, 42));
}

TEST(ColorMap, GetsLighterStepByStepForEveryVision) {
    for (const test::Vision vision :
         {test::Vision::Normal, test::Vision::Protan, test::Vision::Deutan, test::Vision::Tritan}) {
        for (std::size_t i = 4; i < kMapColors; i += 4) {
            EXPECT_GT(test::LabOf(ColorMap()[i], vision).l, test::LabOf(ColorMap()[i - 4], vision).l) << i;
        }
    }
}

TEST(ColorMap, HasEvenSteps) {
    std::vector<double> steps;
    for (std::size_t i = 15; i < kMapColors; i += 15) {
        steps.push_back(OkLabDistance(ColorMap()[i - 15], ColorMap()[i]));
    }
    const auto [smallest, largest] = std::minmax_element(steps.begin(), steps.end());
    EXPECT_GT(*smallest, 0.04);
    EXPECT_LT(*largest / *smallest, 1.1) << *smallest << " to " << *largest;
}

TEST(ColorMap, TheRangesEndsAreItsEnds) {
    EXPECT_EQ(MapIndex({-1, 3, 0}, -1), 0u);
    EXPECT_EQ(MapIndex({-1, 3, 0}, 1), 128u);
    EXPECT_EQ(MapIndex({-1, 3, 0}, 3), 255u);
    EXPECT_EQ(MapIndex({-1, 3, 0}, -9), 0u);
    EXPECT_EQ(MapIndex({-1, 3, 0}, 1e300), 255u);
}

} // namespace
