// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/axis_ticks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace orvanta::spectrum_view;
using Ticks = std::vector<double>;

void ExpectTicks(const Ticks& found, const Ticks& expected) {
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_DOUBLE_EQ(found[i], expected[i]) << i;
    }
}

TEST(RoundTicks, AreMultiplesOfOneTwoOrFive) {
    ExpectTicks(RoundTicks(0, 32, 10), {0, 5, 10, 15, 20, 25, 30});
    ExpectTicks(RoundTicks(0, 32, 5), {0, 10, 20, 30});
    ExpectTicks(RoundTicks(2, 8, 8), {2, 3, 4, 5, 6, 7, 8});
    ExpectTicks(RoundTicks(-0.25, 0.25, 6), {-0.2, -0.1, 0, 0.1, 0.2});
}

TEST(RoundTicks, TakeInEndsThatRoundingMissed) {
    ExpectTicks(RoundTicks(0, 0.1 + 0.2, 4), {0, 0.1, 0.2, 0.3});
}

TEST(RoundTicks, ZeroHasNoSign) {
    const Ticks ticks = RoundTicks(-1, 1, 3);
    ASSERT_EQ(ticks.size(), 3u);
    EXPECT_FALSE(std::signbit(ticks[1]));
}

TEST(RoundTicks, ThereAreNoneWithoutARangeOrRoom) {
    EXPECT_TRUE(RoundTicks(3, 3, 5).empty());
    EXPECT_TRUE(RoundTicks(4, 3, 5).empty());
    EXPECT_TRUE(RoundTicks(0, 10, 1).empty());
    EXPECT_TRUE(RoundTicks(0, std::numeric_limits<double>::quiet_NaN(), 5).empty());
    EXPECT_TRUE(RoundTicks(0, std::numeric_limits<double>::infinity(), 5).empty());
}

TEST(RoundTicks, ThereAreNoneWhereNumbersHaveNoRoomForThem) {
    EXPECT_TRUE(RoundTicks(1e16, 1e16 + 2, 5).empty());
    EXPECT_TRUE(RoundTicks(-1e16 - 2, -1e16, 5).empty());
    EXPECT_TRUE(RoundTicks(1e300, std::nextafter(1e300, 2e300), 5).empty());
    ExpectTicks(RoundTicks(1e14, 1e14 + 4, 5), {1e14, 1e14 + 1, 1e14 + 2, 1e14 + 3, 1e14 + 4});
}

TEST(RoundTicks, NeverMoreThanFitNorFewerThanTwo) {
    for (const double max : {2.2250738585072014e-308, 1e-300, 0.003, 0.7, 1.0, 9.99, 32.0, 47.1, 1e9}) {
        for (int most = 3; most <= 20; ++most) {
            const std::size_t count = RoundTicks(0, max, most).size();
            EXPECT_GE(count, 2u) << max << ", " << most;
            EXPECT_LE(count, static_cast<std::size_t>(most)) << max;
        }
    }
}

TEST(DividingTicks, DivideEvenly) {
    ExpectTicks(DividingTicks(-180, 180, 4), {-180, -90, 0, 90, 180});
}

} // namespace
