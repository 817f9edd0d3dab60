// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/output.h"

#include <gtest/gtest.h>

#include <limits>

namespace orvanta::cli {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(FixedText, KeepsTheDecimals) {
    EXPECT_EQ(FixedText(1.5, 3), "1.500");
}
TEST(FixedText, TakesTheLargestDouble) {
    EXPECT_EQ(FixedText(1.7976931348623157e308, 0).size(), 309u);
}
TEST(FixedText, NaNIsNotANumberText) {
    EXPECT_EQ(FixedText(kNaN, 2), "n/a");
}

TEST(DurationText, ShowsHoursMinutesSeconds) {
    EXPECT_EQ(DurationText(3725.4), "1:02:05");
}
TEST(DurationText, GoesBeyondADay) {
    EXPECT_EQ(DurationText(100 * 3600), "100:00:00");
}

TEST(Pad, FillsOnTheRight) {
    EXPECT_EQ(Pad("ab", 4), "ab  ");
}
TEST(Pad, NegativeWidthFillsOnTheLeft) {
    EXPECT_EQ(Pad("ab", -4), "  ab");
}
TEST(Pad, CountsCharactersNotBytes) {
    EXPECT_EQ(Pad("µV²", 4), "µV² ");
}
TEST(Pad, LeavesLongTextWhole) {
    EXPECT_EQ(Pad("abcdef", 3), "abcdef");
}

} // namespace
} // namespace orvanta::cli
