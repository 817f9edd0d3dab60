// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/time_frequency_plot.h"

#include "host/toolkit/painter_dc.h"
#include "spectrum_view/painting/color_map.h"
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
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::uint32_t kWhitePixel = 0xFFFFFFFF;

std::uint32_t Pixel(std::size_t index) {
    return PixelOf(ColorMap()[index]);
}

/// 0 to 2 Hz in bins of 1 Hz, values 0 to 3.
OverTimeInput Small(const std::vector<double>& begins, std::vector<float> values, double end_s) {
    OverTimeInput input;
    input.frame.slot = {0, 0, 400, 300};
    input.frame.vertical = {0, 3, 0};
    input.axis = {0, 2, 1, 0, 2};
    input.spectra = test::SecondsOfOnes(begins, 3);
    input.spectra.values = std::move(values);
    input.end_s = end_s;
    return input;
}

TEST(TimeFrequencyImage, TimeRunsToTheRightAndFrequencyUpwards) {
    const owl::TImage image = TimeFrequencyImage(Small({0, 1}, {0, 1, 2, 3, 3, 0}, 2), 2, 2);
    // Lower row 0 to 1 Hz with the bin of 0 Hz, upper row 1 to 2 Hz with that of 1 Hz.
    EXPECT_THAT(image.pixels, ElementsAre(Pixel(85), Pixel(255), Pixel(0), Pixel(255)));
}

TEST(TimeFrequencyImage, APixelIsTheMeanOfItsEpochsAndBins) {
    const owl::TImage image = TimeFrequencyImage(Small({0, 1}, {0, 1, 9, 2, 3, 9}, 2), 1, 1);
    EXPECT_THAT(image.pixels, ElementsAre(Pixel(128))); // 1.5 of 3
}

TEST(TimeFrequencyImage, StretchesWithoutAnEpochAreWhite) {
    const owl::TImage image = TimeFrequencyImage(Small({0, 2}, {3, 3, 3, 0, 0, 0}, 3), 3, 1);
    EXPECT_THAT(image.pixels, ElementsAre(Pixel(255), kWhitePixel, Pixel(0)));
}

TEST(TimeFrequencyImage, WhatIsNoNumberIsWhite) {
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    const owl::TImage image = TimeFrequencyImage(Small({0, 1}, {kNan, 3, 0, kInfinity, kNan, 0}, 2), 2, 2);
    EXPECT_THAT(image.pixels, ElementsAre(Pixel(255), kWhitePixel, kWhitePixel, kWhitePixel));
}

TEST(TimeFrequencyImage, BinsBeyondTheSpectraAreWhite) {
    OverTimeInput input = Small({0}, {3, 3, 3}, 1);
    input.axis = {8, 10, 1, 8, 10};
    EXPECT_THAT(TimeFrequencyImage(input, 2, 2).pixels, Each(kWhitePixel));
}

TEST(TimeFrequency, OnePictureOfThePlotsSizeAndOneOfTheColorBar) {
    const OverTimeInput input = test::TenSeconds();
    test::RecordingDC dc;
    PaintTimeFrequency(dc, input);
    dc.SelectFont(input.frame.font);
    const OverTimeLayout layout = TimeFrequencyLayout(input, ExtentIn(dc));
    ASSERT_EQ(dc.Images().size(), 2u);
    EXPECT_EQ(dc.Images()[0].width, layout.plot.Width());
    EXPECT_EQ(dc.Images()[0].height, layout.plot.Height());
    EXPECT_EQ(dc.Images()[1].pixels.front(), Pixel(255));
    EXPECT_EQ(dc.Images()[1].pixels.back(), Pixel(0));
}

TEST(TimeFrequency, NumbersFrequenciesTimesAndTheColorBar) {
    test::RecordingDC dc;
    PaintTimeFrequency(dc, test::TenSeconds());
    EXPECT_THAT(dc.Texts(), ElementsAre("0", "2", "4", "6", "8", "10", "Hz", "00:00:00", "00:00:02",
                                        "00:00:04", "00:00:06", "00:00:08", "00:00:10", "0.0", "0.5", "1.0",
                                        "1.5", "2.0", "2.5", "3.0", "3.5", "4.0", "Fp1 (µV)"));
}

TEST(TimeFrequency, WithoutARangeOrRowIsAFrame) {
    OverTimeInput input = test::TenSeconds();
    input.frame.vertical = {2, 2, 0};
    test::RecordingDC dc;
    PaintTimeFrequency(dc, input);
    input = test::TenSeconds();
    input.spectra = {};
    PaintTimeFrequency(dc, input);
    EXPECT_THAT(dc.Images(), IsEmpty());
    EXPECT_THAT(dc.Texts(), IsEmpty());
}

TEST(TimeFrequency, ReachesTheScreenInTheMapsColors) {
    QImage image(800, 600, QImage::Format_RGB32);
    image.setDevicePixelRatio(2);
    {
        QPainter painter(&image);
        owl::PainterDC dc(painter);
        PaintTimeFrequency(dc, test::TenSeconds());
    }
    EXPECT_EQ(image.pixel(360, 300), Pixel(64)); // 1 of 4
}

} // namespace
