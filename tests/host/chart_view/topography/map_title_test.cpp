// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/map_title.h"

#include "tests/support/qt/recording_dc.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::chart;
using orvanta::test::RecordingDC;
using testing::ElementsAre;

/// Every character is as wide as half its font is high: smaller fonts are narrower, as on the screen.
class Typewriter final : public RecordingDC {
public:
    void SelectFont(const owl::TFont& font) override {
        height_ = font.height;
        RecordingDC::SelectFont(font);
    }
    owl::TSize GetTextExtent(std::string_view text) const override {
        return {static_cast<int>(text.size()) * height_ / 2, height_};
    }

private:
    int height_ = 12;
};

constexpr int kHigh = 400;
const owl::TFont kFont{"Verdana", 20};
/// 26 characters: 260 pixels; 14 and 12 in two lines: 140.
const std::string kTitle = "Band: Alpha - Measure: Abs";

struct TitleCase {
    const char* name;
    int width, height;
    TitleFit fit;
};

class TitleIn : public testing::TestWithParam<TitleCase> {};

TEST_P(TitleIn, IsWrittenSoThatItIsRead) {
    Typewriter dc;
    const std::vector<std::string> titles{"Band: Beta - Measure: Abs", kTitle};
    EXPECT_EQ(FitTitles(dc, kFont, titles, {GetParam().width, GetParam().height}), GetParam().fit);
}

INSTANTIATE_TEST_SUITE_P(Rooms, TitleIn,
                         testing::Values(TitleCase{"Enough", 260, kHigh, {1, 100, true}},
                                         TitleCase{
                                             "ALittleTooNarrow", 259, kHigh, {1, 90, true}}, // 234 pixels
                                         TitleCase{"TooNarrowForALine", 233, kHigh, {2, 100, true}},
                                         TitleCase{"JustForTwoLines", 130, kHigh, {2, 100, true}},
                                         TitleCase{"TooNarrowForTwoLines", 129, kHigh, {2, 90, true}},
                                         TitleCase{"ForTwoSmallLines", 104, kHigh, {2, 80, true}},
                                         TitleCase{"TooNarrowForAnything", 100, kHigh, {2, 80, false}},
                                         TitleCase{"TooLowForTwoLines", 200, 120, {1, 90, false}}),
                         [](const auto& room) { return room.param.name; });

TEST(TitlesOfMaps, AreNotWrittenSmallerThanIsRead) {
    Typewriter dc;
    PaintTitle(dc, {0, 0, 300, 40}, kTitle, {"Verdana", 10}, {1, 80}, 0);
    EXPECT_THAT(dc.CallsOf("font"), ElementsAre("font \"Verdana\" 9"));
}

TEST(TitlesOfMaps, BreakBehindTheirDash) {
    Typewriter dc;
    PaintTitle(dc, {0, 10, 300, 50}, kTitle, kFont, {2, 100}, 0);
    EXPECT_THAT(dc.CallsOf("text"),
                ElementsAre("text 150,10 center \"Band: Alpha -\"", "text 150,30 center \"Measure: Abs\""));
}

TEST(TitlesOfMaps, AreOneLineWithoutADash) {
    Typewriter dc;
    PaintTitle(dc, {0, 10, 300, 50}, "Time: 00:00:02", kFont, {2, 100}, 0);
    EXPECT_THAT(dc.Texts(), ElementsAre("Time: 00:00:02"));
}

TEST(TitlesOfMaps, TakeNoMoreThanAQuarterOfTheirMap) {
    Typewriter dc;
    EXPECT_EQ(TitleHeight(dc, kFont, {2, 100}, 160), 40);
    EXPECT_EQ(TitleHeight(dc, kFont, {2, 100}, 159), 0);
}

} // namespace
