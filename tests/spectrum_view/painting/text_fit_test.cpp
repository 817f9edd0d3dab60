// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/text_fit.h"

#include <gtest/gtest.h>

namespace {

using namespace orvanta::spectrum_view;

constexpr owl::TRect kArea{0, 0, 100, 50};

owl::TSize TenByTwelve(std::string_view text) {
    return {10 * static_cast<int>(text.size()), 12};
}

PlacedText At(int left, int top, int right, int bottom) {
    return {{left, top, right, bottom}, ""};
}

TEST(PlacedText, StandsAtItsSideMovedIntoTheArea) {
    EXPECT_EQ(Placed("ab", 40, 5, owl::TextAlign::Left, kArea, TenByTwelve).rect,
              (owl::TRect{40, 5, 60, 17}));
    EXPECT_EQ(Placed("ab", 40, 5, owl::TextAlign::Center, kArea, TenByTwelve).rect,
              (owl::TRect{30, 5, 50, 17}));
    EXPECT_EQ(Placed("ab", 40, 5, owl::TextAlign::Right, kArea, TenByTwelve).rect,
              (owl::TRect{20, 5, 40, 17}));
    EXPECT_EQ(Placed("ab", 95, 5, owl::TextAlign::Center, kArea, TenByTwelve).rect,
              (owl::TRect{80, 5, 100, 17}));
    EXPECT_EQ(Placed("ab", 3, 5, owl::TextAlign::Center, kArea, TenByTwelve).rect,
              (owl::TRect{0, 5, 20, 17}));
}

TEST(TextFit, KeepsAGapBetweenTextsSideBySide) {
    EXPECT_TRUE(Fits({At(0, 0, 20, 12), At(24, 0, 40, 12)}, kArea, 4, {}));
    EXPECT_FALSE(Fits({At(0, 0, 20, 12), At(24, 0, 40, 12)}, kArea, 5, {}));
    EXPECT_TRUE(Fits({At(0, 0, 20, 12), At(0, 12, 20, 24)}, kArea, 5, {})); // one over the other
}

TEST(TextFit, CutsNothingAndCoversNothing) {
    const std::vector<owl::TRect> taken{{50, 0, 100, 20}};
    EXPECT_TRUE(Fits({At(0, 0, 50, 50)}, kArea, 0, taken));
    EXPECT_FALSE(Fits({At(0, 0, 51, 12)}, kArea, 0, taken));
    EXPECT_FALSE(Fits({At(-1, 0, 20, 12)}, kArea, 0, {}));
    EXPECT_FALSE(Fits({At(0, 39, 20, 51)}, kArea, 0, {}));
}

TEST(TextFit, EmptiesTheLessImportantOfTwoGroupsInOnePlace) {
    PlacedTexts first{At(0, 0, 20, 12)};
    PlacedTexts second{At(10, 0, 30, 12), At(60, 0, 80, 12)};
    PlacedTexts third{At(60, 0, 80, 12)};
    KeepFitting({&first, &second, &third}, kArea, 0, {});
    EXPECT_EQ(first.size(), 1u);
    EXPECT_TRUE(second.empty());
    EXPECT_EQ(third.size(), 1u); // in the place of what went
}

} // namespace
