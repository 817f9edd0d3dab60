// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/palettes.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::chart;
using owl::Rgb;

double Luma(owl::TColor color) {
    return 0.2126 * owl::Red(color) + 0.7152 * owl::Green(color) + 0.0722 * owl::Blue(color);
}

TEST(Palettes, AreSix) {
    std::vector<std::string_view> names;
    for (const Palette& palette : Palettes()) {
        names.push_back(palette.name);
    }
    EXPECT_EQ(names, (std::vector<std::string_view>{"viridis", "cividis", "inferno", "difference", "turbo",
                                                    "grey"}));
}

TEST(Palettes, HaveThePublishedColors) {
    // matplotlib 3.6, colours 0, 128 and 255 of 256.
    EXPECT_EQ(FindPalette("viridis")->colors[0], Rgb(68, 1, 84));
    EXPECT_EQ(FindPalette("viridis")->colors[255], Rgb(253, 231, 37));
    EXPECT_EQ(FindPalette("inferno")->colors[0], Rgb(0, 0, 4));
    EXPECT_EQ(FindPalette("inferno")->colors[255], Rgb(252, 255, 164));
    EXPECT_EQ(FindPalette("cividis")->colors[0], Rgb(0, 34, 78));
    EXPECT_EQ(FindPalette("cividis")->colors[255], Rgb(254, 232, 56));
    EXPECT_EQ(FindPalette("turbo")->colors[0], Rgb(48, 18, 59));
    EXPECT_EQ(FindPalette("turbo")->colors[255], Rgb(122, 4, 3));
}

TEST(Palettes, LieBetweenThePublishedColors) {
    EXPECT_EQ(FindPalette("viridis")->colors[128], Rgb(32, 144, 140)); // published: 33, 145, 140
    EXPECT_EQ(FindPalette("inferno")->colors[128], Rgb(188, 55, 84));  // published: 188, 55, 84
}

TEST(Palettes, GrowLighterWhereOrderMustBeSeen) {
    for (const char* name : {"viridis", "cividis", "inferno", "grey"}) {
        const Colors& colors = FindPalette(name)->colors;
        for (std::size_t i = 8; i < colors.size(); i += 8) {
            EXPECT_GT(Luma(colors[i]), Luma(colors[i - 8])) << name << " " << i;
        }
    }
}

TEST(Palettes, ShowADifferenceOfNothingAsTheLightest) {
    const Colors& colors = FindPalette("difference")->colors;
    EXPECT_NEAR(owl::Red(colors[127]), owl::Blue(colors[127]), 3);
    for (std::size_t i = 0; i < 127; ++i) {
        EXPECT_LE(Luma(colors[i]), Luma(colors[i + 1])) << i;
        EXPECT_LE(Luma(colors[255 - i]), Luma(colors[254 - i])) << i;
    }
}

TEST(Palettes, TellNegativeFromPositiveByHue) {
    const Colors& colors = FindPalette("difference")->colors;
    EXPECT_GT(owl::Blue(colors[60]), owl::Red(colors[60]));
    EXPECT_GT(owl::Red(colors[195]), owl::Blue(colors[195]));
}

TEST(Palettes, KnowNoOtherName) {
    EXPECT_EQ(FindPalette("jet"), nullptr);
}

TEST(ColorIndex, SpreadsTheScaleOverAllColors) {
    EXPECT_EQ(ColorIndex(0, 0, 51), 0U);
    EXPECT_EQ(ColorIndex(10, 0, 51), 50U);
    EXPECT_EQ(ColorIndex(51, 0, 51), 255U);
}

TEST(ColorIndex, StopsAtTheEnds) {
    EXPECT_EQ(ColorIndex(-3, 0, 51), 0U);
    EXPECT_EQ(ColorIndex(99, 0, 51), 255U);
}

TEST(ColorIndex, OnAScaleWithoutWidthIsTheMiddleOne) {
    EXPECT_EQ(ColorIndex(4, 4, 4), 128U);
    EXPECT_EQ(ColorIndex(5, 4, 4), 255U);
    EXPECT_EQ(ColorIndex(3, 4, 4), 0U);
}

} // namespace
