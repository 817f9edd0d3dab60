// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/measures_box.h"

#include "tests/support/qt/recording_dc.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using Calls = std::vector<std::string>;

constexpr owl::TRect kCell{0, 0, 1000, 800};

/// Bands "B0" … "B4" of 4 Hz and three undefined; value of band b and measure m "b.m".
MeasuresBoxInput Box(std::uint64_t columns, std::uint64_t rows, const owl::TRect& cell = kCell,
                     const owl::TRect& first = kCell) {
    MeasuresBoxInput input{columns, rows, cell, first, {}, {}, {}};
    input.font.height = 14;
    for (std::size_t i = 0; i < 8; ++i) {
        input.measures[i] = "M" + std::to_string(i);
        MeasuresRow& band = input.bands[i];
        const double lo = 4 * static_cast<double>(i);
        band = {lo, i < 5 ? lo + 4 : lo, i < 5 ? "B" + std::to_string(i) : "", {}};
        for (std::size_t m = 0; m < 8; ++m) {
            band.values[m] = std::to_string(i) + "." + std::to_string(m);
        }
    }
    return input;
}

Calls Texts(const MeasuresBoxInput& input) {
    test::RecordingDC dc;
    PaintMeasuresBox(dc, input);
    return dc.Texts();
}

Calls Painted(const MeasuresBoxInput& input, std::initializer_list<std::string_view> kinds) {
    test::RecordingDC dc;
    PaintMeasuresBox(dc, input);
    return dc.CallsOf(kinds);
}

// --- which measures and bands

TEST(MeasuresBox, OfOneCellHasFiveMeasures) {
    const Calls texts = Texts(Box(1, 1));
    EXPECT_EQ(Calls(texts.begin(), texts.begin() + 5), (Calls{"M1", "M2", "M3", "M4", "M5"}));
}

TEST(MeasuresBox, OfTwoToFourCellsHasThreeMeasures) {
    for (const auto& [columns, rows] : {std::pair{2, 1}, {1, 2}, {2, 2}}) {
        const Calls texts = Texts(Box(static_cast<unsigned>(columns), static_cast<unsigned>(rows)));
        EXPECT_EQ(Calls(texts.begin(), texts.begin() + 4), (Calls{"M1", "M3", "M5", "B0"}))
            << columns << "x" << rows;
    }
}

TEST(MeasuresBox, OfLargerGridsIsNotPainted) {
    for (const auto& [columns, rows] : {std::pair{3, 1}, {1, 3}, {3, 2}, {0, 0}, {0, 2}}) {
        test::RecordingDC dc;
        const MeasuresBoxInput input = Box(static_cast<unsigned>(columns), static_cast<unsigned>(rows));
        EXPECT_EQ(MeasuresBoxRect(dc, input), owl::TRect()) << columns << "x" << rows;
        EXPECT_EQ(Texts(input), Calls()) << columns << "x" << rows;
    }
}

TEST(MeasuresBox, OfOneCellLosesItsLastBandToAGap) {
    MeasuresBoxInput input = Box(1, 1);
    input.bands[2].hi = input.bands[2].lo;
    EXPECT_EQ(BandsLookedAt(input), 4);
    const Calls texts = Painted(input, {"text"});
    const auto named = [&texts](const std::string& name) {
        Calls found;
        std::copy_if(texts.begin(), texts.end(), std::back_inserter(found),
                     [&](const std::string& call) { return call.ends_with("\"" + name + "\""); });
        return found;
    };
    EXPECT_EQ(named("B0").back(), "text 520,130 right \"B0\"");
    EXPECT_EQ(named("B1").back(), "text 520,156 right \"B1\"");
    EXPECT_EQ(named("B2"), Calls());
    EXPECT_EQ(named("B3").back(), "text 520,208 right \"B3\"");
    EXPECT_EQ(named("B4"), Calls());
}

TEST(MeasuresBox, OfTwoCellsLooksAtAllBands) {
    MeasuresBoxInput input = Box(2, 1);
    input.bands[7].hi = input.bands[7].lo + 0.011;
    input.bands[7].name = "B7";
    input.bands[6].hi = input.bands[6].lo + 0.0099;
    input.bands[6].name = "B6";
    const Calls texts = Texts(input);
    EXPECT_EQ(texts.at(texts.size() - 4), "B7");
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "B6"), 0);
}

// --- geometry

TEST(MeasuresBox, TakesItsFontFromTheShorterSide) {
    EXPECT_EQ(MeasuresFontHeight(Box(1, 1, {0, 0, 1000, 800})), 20);
    EXPECT_EQ(MeasuresFontHeight(Box(1, 1, {100, 0, 500, 800})), 10);
    EXPECT_EQ(MeasuresFontHeight(Box(1, 1, {0, 0, 439, 500})), 10); // 10.975
}

TEST(MeasuresBox, HangsInTheUpperRightOfItsCell) {
    const MeasuresBoxGeometry geometry = MeasuresBoxGeometryOf(Box(1, 1), 20);
    EXPECT_EQ(geometry.right, 920);
    EXPECT_EQ(geometry.columnWidth, 80);
    EXPECT_EQ(geometry.box, (owl::TRect{440, 104, 928, 260})); // 488 × 156
    EXPECT_EQ(geometry.ColumnRight(0), 600);
    EXPECT_EQ(geometry.ColumnRight(4), 920);
    EXPECT_EQ(geometry.NameRight(), 520);
}

TEST(MeasuresBox, OfEveryCellHasTheColumnWidthOfTheFirstWithItsLeftEdge) {
    const MeasuresBoxGeometry geometry =
        MeasuresBoxGeometryOf(Box(2, 1, {510, 0, 1010, 400}, {10, 0, 510, 400}), 10);
    EXPECT_EQ(geometry.right, 970);
    EXPECT_EQ(geometry.columnWidth, 50);
    EXPECT_EQ(geometry.box, (owl::TRect{770, 52, 974, 169})); // 50 × 4.1 lies just below 205
}

// --- painting

TEST(MeasuresBox, LiesGreyAndTranslucentUnderItsOutline) {
    EXPECT_EQ(Painted(Box(1, 1), {"blend", "pen", "polyline"}),
              (Calls{"blend 440,104,928,260 #D8D8D8 160", "pen #D8D8D8 1 solid",
                     "polyline 440,104 928,104 928,260 440,260 440,104"}));
}

TEST(MeasuresBox, WritesTheHeaderThenRowsWithTheNameInTheBandsColorOverItsShadow) {
    const Calls calls = Painted(Box(2, 1), {"align", "textcolor", "text"});
    EXPECT_EQ(Calls(calls.begin(), calls.begin() + 14),
              (Calls{"align right", "textcolor #000000", "text 760,104 right \"M1\"",
                     "text 840,104 right \"M3\"", "text 920,104 right \"M5\"", "textcolor #464646",
                     "text 681,131 right \"B0\"", "textcolor #FF8080", "text 680,130 right \"B0\"",
                     "textcolor #000000", "text 760,130 right \"0.1\"", "text 840,130 right \"0.3\"",
                     "text 920,130 right \"0.5\"", "textcolor #464646"}));
    EXPECT_EQ(calls.back(), "align left");
}

TEST(MeasuresBox, IsLeftOutWhereItsNumbersRunIntoEachOther) {
    MeasuresBoxInput input = Box(1, 1);
    input.bands[1].values[3] = "123456789012"; // 72 of 80 columns
    EXPECT_FALSE(Texts(input).empty());
    input.bands[1].values[3] = "12345678901234"; // 84
    EXPECT_TRUE(Texts(input).empty());
    input = Box(1, 1);
    input.bands[6].values[3] = "12345678901234"; // not shown
    EXPECT_FALSE(Texts(input).empty());
}

TEST(MeasuresBox, IsLeftOutWhereNobodyCouldReadIt) {
    EXPECT_FALSE(Texts(Box(1, 1, {0, 0, 400, 240}, {0, 0, 400, 240})).empty()); // 6 pixels
    EXPECT_TRUE(Texts(Box(1, 1, {0, 0, 400, 239}, {0, 0, 400, 239})).empty());  // 5
}

} // namespace
