// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/map_texts.h"

#include "tests/support/qt/fake_global_window.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::chart;
using testing::ElementsAre;

TEST(DecimalsFor, TellThreeDigitsOfTheLargerEnd) {
    EXPECT_EQ(DecimalsFor({0, 123}), 0);
    EXPECT_EQ(DecimalsFor({2, 16}), 1);
    EXPECT_EQ(DecimalsFor({0, 1.5}), 2);
    EXPECT_EQ(DecimalsFor({1e-4, 3e-4}), 6);
    EXPECT_EQ(DecimalsFor({0, 1e9}), 0);
    EXPECT_EQ(DecimalsFor({0, 1e-30}), 9);
}

TEST(DecimalsFor, AreEnoughForANarrowScale) {
    EXPECT_EQ(DecimalsFor({4.71, 5.496}), 2);
    EXPECT_EQ(DecimalsFor({-5.496, -4.71}), 2);
    EXPECT_EQ(DecimalsFor({167.4, 167.9}), 2);
    EXPECT_EQ(DecimalsFor({-1.7e308, 1.7e308}), 0);
}

TEST(DecimalsFor, FollowsTheValueOnAScaleWithoutWidth) {
    EXPECT_EQ(DecimalsFor({25, 25}), 1);
    EXPECT_EQ(DecimalsFor({0, 0}), 1);
}

TEST(NumberText, IsThePlatforms) {
    const orvanta::test::FakePlatform platform;
    EXPECT_EQ(NumberText(&platform, 2.345, 2), "2.35");
    EXPECT_EQ(NumberText(&platform, NAN, 2), "n/a");
    EXPECT_EQ(NumberText(nullptr, 2.5, 1), "2.5");
}

TEST(NumberText, HasNoSignAtZero) {
    EXPECT_EQ(NumberText(nullptr, -0.04, 1), "0.0");
    EXPECT_EQ(NumberText(nullptr, -0.06, 1), "-0.1");
}

TEST(ColorScaleOf, HasNumbersAtItsEndsAndInItsMiddle) {
    const ColorScale scale = ColorScaleOf(nullptr, {2, 16}, "µV");
    EXPECT_THAT(scale.numbers, ElementsAre("2.0", "9.0", "16.0"));
    EXPECT_EQ(scale.unit, "µV");
}

TEST(ColorScaleOf, HasOneNumberWithoutWidth) {
    EXPECT_THAT(ColorScaleOf(nullptr, {5, 5}, "").numbers, ElementsAre("5.00"));
}

} // namespace
