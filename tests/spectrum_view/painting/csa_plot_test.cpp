// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/csa_plot.h"

#include "host/toolkit/painter_dc.h"
#include "spectrum_view/painting/band_colors.h"
#include "spectrum_view/painting/over_time_layout.h"
#include "spectrum_view/painting/slot_frame.h"
#include "tests/spectrum_view/painting/over_time_input.h"
#include "tests/support/qt/recording_dc.h"

#include <QImage>
#include <QPainter>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

std::vector<std::string> Rows(const OverTimeInput& input) {
    test::RecordingDC dc;
    PaintCompressedArray(dc, input);
    return dc.CallsOf("polyline");
}

std::vector<std::string> Texts(const OverTimeInput& input) {
    test::RecordingDC dc;
    PaintCompressedArray(dc, input);
    return dc.Texts();
}

/// Without texts the plot has a mean plot's margins: columns 40 … 392, rows 15 … 275, the rows over 182
/// pixels.
OverTimeInput WithoutTexts() {
    OverTimeInput input = test::TenSeconds();
    input.frame.flags.labels = false;
    input.frame.flags.axesText = false;
    return input;
}

TEST(CompressedArray, TheOldestRowIsAtTheBottomAndRowsStandWhereTheyBegin) {
    OverTimeInput input = WithoutTexts();
    input.spectra = test::SecondsOfOnes({0, 5}, 11);
    std::fill(input.spectra.values.begin(), input.spectra.values.end(), 0.0F);
    EXPECT_THAT(Rows(input), ElementsAre("polyline 40,276 392,276", "polyline 40,185 392,185"));
}

TEST(CompressedArray, TheRangesMaximumIsAsHighAsThePlotAboveTheRows) {
    OverTimeInput input = WithoutTexts();
    input.spectra = test::SecondsOfOnes({0}, 11);
    std::fill(input.spectra.values.begin(), input.spectra.values.end(), 4.0F);
    EXPECT_THAT(Rows(input), ElementsAre("polyline 40,197 392,197"));
}

TEST(CompressedArray, ARowHidesThoseBehindIt) {
    OverTimeInput input = WithoutTexts();
    input.spectra = test::SecondsOfOnes({0, 1}, 11);
    std::fill(input.spectra.values.begin(), input.spectra.values.begin() + 11, 4.0F);
    std::fill(input.spectra.values.begin() + 11, input.spectra.values.end(), 0.0F);
    EXPECT_THAT(Rows(input), ElementsAre("polyline 40,197 392,197"));
}

TEST(CompressedArray, BinsWithoutANumberPartARow) {
    OverTimeInput input = WithoutTexts();
    input.spectra = test::SecondsOfOnes({0}, 11);
    std::fill(input.spectra.values.begin(), input.spectra.values.end(), 0.0F);
    input.spectra.values[5] = std::numeric_limits<float>::quiet_NaN();
    EXPECT_THAT(Rows(input), ElementsAre("polyline 40,276 180,276", "polyline 251,276 392,276"));
}

TEST(CompressedArray, IsInTheTracesColorOverTheTintsOfTheBands) {
    OverTimeInput input = WithoutTexts();
    input.bands = {{2, 4, 2, 4, kBandColors[1], "B"}};
    test::RecordingDC dc;
    PaintCompressedArray(dc, input);
    EXPECT_THAT(dc.CallsOf({"fill"}), ElementsAre("fill 0,0,400,300 #FFFFFF", "fill 110,15,180,276 #CEDAFF"));
    EXPECT_THAT(dc.CallsOf("pen"), ElementsAre("pen #0000A0 1 solid", HasSubstr("pen")));
}

TEST(CompressedArray, TenHoursAreDrawnWithAsFewRowsAsThereIsRoomFor) {
    OverTimeInput input = WithoutTexts();
    std::vector<double> begins;
    for (int i = 0; i < 18000; ++i) {
        begins.push_back(i * 2.0);
    }
    input.spectra = test::SecondsOfOnes(begins, 11);
    input.end_s = 36000;
    EXPECT_EQ(Rows(input).size(), 46u); // 182 pixels, 4 to a row
}

TEST(CompressedArray, ShowsClockTimesAndFrequencies) {
    OverTimeInput input = test::TenSeconds();
    input.startOfDay_s = 22 * 3600;
    EXPECT_THAT(Texts(input),
                ElementsAre("22:00:00", "22:00:02", "22:00:04", "22:00:06", "22:00:08", "22:00:10", "0", "1",
                            "2", "3", "4", "5", "6", "7", "8", "9", "10", "Fp1 (µV)"));
}

TEST(CompressedArray, WithoutARowOrRangeIsAFrame) {
    OverTimeInput input = test::TenSeconds();
    input.frame.vertical = {1, 1, 0};
    EXPECT_THAT(Rows(input), IsEmpty());
    EXPECT_THAT(Texts(input), IsEmpty());
    input = test::TenSeconds();
    input.spectra = {};
    EXPECT_THAT(Texts(input), IsEmpty());
    input.frame.notice = "No analysis";
    EXPECT_THAT(Texts(input), IsSupersetOf({std::string("No analysis")}));
}

TEST(CompressedArray, WithoutAFrequencyRangeIsAFrame) {
    OverTimeInput input = test::TenSeconds();
    input.axis = {4, 4, 1, 4, 4};
    EXPECT_THAT(Rows(input), IsEmpty());
}

TEST(CompressedArray, StaysWhiteInAGap) {
    OverTimeInput input = WithoutTexts();
    input.spectra = test::SecondsOfOnes({0, 1, 8, 9}, 11);
    std::fill(input.spectra.values.begin(), input.spectra.values.end(), 0.0F);
    QImage image(400, 300, QImage::Format_RGB32);
    image.fill(Qt::red);
    {
        QPainter painter(&image);
        owl::PainterDC dc(painter);
        PaintCompressedArray(dc, input);
    }
    // Rows at 0, 1, 8 and 9 of 10 s over 182 pixels.
    EXPECT_EQ(image.pixelColor(200, 258), QColor(0, 0, 160));
    for (int y = 132; y < 258; ++y) {
        EXPECT_EQ(image.pixelColor(200, y), QColor(Qt::white)) << y;
    }
    EXPECT_EQ(image.pixelColor(200, 131), QColor(0, 0, 160));
}

} // namespace
