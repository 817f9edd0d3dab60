// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/geometry.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using owl::TRect;

constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();

struct MulDivCase {
    const char* what;
    int number, numerator, denominator, result;
};

constexpr MulDivCase kMulDivCases[] = {
    {"exact", 6, 4, 3, 8},
    {"down below a half", 10, 1, 3, 3},
    {"up above a half", 11, 1, 3, 4},
    {"half away from zero", 1, 1, 2, 1},
    {"half away from zero, 3.5", 7, 1, 2, 4},
    {"negative half away from zero", -1, 1, 2, -1},
    {"negative half away from zero, -3.5", 7, -1, 2, -4},
    {"negative denominator", 7, 1, -2, -4},
    {"three negatives", -7, -1, -2, -4},
    {"two negatives", -7, 1, -2, 4},
    {"nothing", 0, 5, 7, 0},
    {"nothing negative", 0, -5, 7, 0},
    {"product beyond 32 bits", 2'000'000'000, 3, 4, 1'500'000'000},
    {"largest", kMost, kMost, kMost, kMost},
    {"smallest", kLeast, 1, 1, kLeast},
    {"smallest by smallest", kLeast, kLeast, kLeast, kLeast},
    {"zero denominator", 5, 5, 0, -1},
    {"zero by zero", 0, 0, 0, -1},
    {"too large", kMost, 2, 1, -1},
    {"too large by one", kLeast, -1, 1, -1},
    {"too small", kLeast, 2, 1, -1},
};

TEST(MulDiv, RoundsToNearestInSixtyFourBits) {
    for (const MulDivCase& one : kMulDivCases) {
        EXPECT_EQ(MulDiv(one.number, one.numerator, one.denominator), one.result) << one.what;
    }
}

TEST(TColor, IsBlueGreenRed) {
    EXPECT_EQ(owl::Rgb(0x11, 0x22, 0x33), 0x00332211U);
    EXPECT_EQ(owl::Red(0x00332211), 0x11);
    EXPECT_EQ(owl::Green(0x00332211), 0x22);
    EXPECT_EQ(owl::Blue(0x00332211), 0x33);
    EXPECT_EQ(owl::Blue(0xFF332211), 0x33) << "the highest byte is not part of it";
}

TEST(TRect, ExcludesItsRightAndBottomEdge) {
    const TRect rect{10, 20, 13, 22};
    EXPECT_EQ(rect.Width(), 3);
    EXPECT_EQ(rect.Height(), 2);
    EXPECT_TRUE(rect.Contains({10, 20}));
    EXPECT_TRUE(rect.Contains({12, 21}));
    EXPECT_FALSE(rect.Contains({13, 21}));
    EXPECT_FALSE(rect.Contains({12, 22}));
    EXPECT_FALSE(rect.Contains({9, 20}));
    EXPECT_FALSE(rect.Contains({10, 19}));
}

TEST(TRect, IsEmptyWithoutWidthOrHeight) {
    EXPECT_TRUE(TRect().IsEmpty());
    EXPECT_TRUE((TRect{5, 5, 5, 9}.IsEmpty()));
    EXPECT_TRUE((TRect{5, 5, 9, 4}.IsEmpty()));
    EXPECT_FALSE((TRect{5, 5, 6, 6}.IsEmpty()));
}

TEST(TRect, TouchesWhatSharesAPixel) {
    const TRect rect{10, 10, 20, 20};
    EXPECT_TRUE(rect.Touches({19, 19, 30, 30}));
    EXPECT_TRUE(rect.Touches({12, 12, 13, 13}));
    EXPECT_FALSE(rect.Touches({20, 10, 30, 20}));
    EXPECT_FALSE(rect.Touches({10, 0, 20, 10}));
    EXPECT_FALSE(rect.Touches({15, 15, 15, 18})) << "an empty one touches nothing";
}

TEST(TRect, GrowsAndShrinksOnAllSides) {
    const TRect grown{-2, -1, 12, 11};
    const TRect shrunk{2, 1, 8, 9};
    EXPECT_EQ((TRect{0, 0, 10, 10}.InflatedBy(2, 1)), grown);
    EXPECT_EQ((TRect{0, 0, 10, 10}.InflatedBy(-2, -1)), shrunk);
}

} // namespace
