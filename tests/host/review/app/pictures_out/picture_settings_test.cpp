// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/pictures_out/picture_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::review;
using testing::HasSubstr;

/// \param width,height logical pixels
PictureSettings Of(double width, double height, int resolution, PictureFormat format = PictureFormat::Png) {
    return {.format = format, .resolution = resolution, .width = width, .height = height};
}

TEST(PictureLength, IsTheSameInEveryUnit) {
    // 960 logical pixels are ten inches.
    EXPECT_DOUBLE_EQ(InUnit(960, LengthUnit::Inches, 300), 10);
    EXPECT_DOUBLE_EQ(InUnit(960, LengthUnit::Millimetres, 300), 254);
    EXPECT_DOUBLE_EQ(InUnit(960, LengthUnit::Pixels, 300), 3000);
    EXPECT_DOUBLE_EQ(FromUnit(10, LengthUnit::Inches, 300), 960);
    EXPECT_DOUBLE_EQ(FromUnit(254, LengthUnit::Millimetres, 300), 960);
    EXPECT_DOUBLE_EQ(FromUnit(3000, LengthUnit::Pixels, 300), 960);
}

TEST(PictureSize, HasExactlyThePixelsThatWereAskedFor) {
    const auto pixels = [](double width, double height, int resolution) {
        return Of(FromUnit(width, LengthUnit::Pixels, resolution),
                  FromUnit(height, LengthUnit::Pixels, resolution), resolution);
    };
    EXPECT_EQ(PixelSize(pixels(1001, 499, 300)), (owl::TSize{1001, 499}));
    EXPECT_EQ(PixelSize(pixels(1920, 1080, 96)), (owl::TSize{1920, 1080}));
    EXPECT_EQ(PixelSize(pixels(4095, 4097, 1200)), (owl::TSize{4095, 4097}));
}

TEST(PictureSize, IsDrawnInWholeLogicalPixelsThatCoverIt) {
    EXPECT_EQ(LogicalSize(Of(320.32, 100, 300)), (owl::TSize{321, 100}));
    EXPECT_EQ(LogicalSize(Of(FromUnit(3000, LengthUnit::Pixels, 300), 100, 300)), (owl::TSize{960, 100}));
}

TEST(PictureSize, IsToldInPixelsAndMillimetres) {
    EXPECT_EQ(SizeText(Of(960, 480, 96)), "960 × 480 pixels, 254 × 127 mm");
    EXPECT_EQ(SizeText(Of(960, 480, 300)), "3000 × 1500 pixels, 254 × 127 mm");
}

TEST(PictureProblem, IsNoneForUsualPictures) {
    EXPECT_EQ(ProblemOf(Of(100, 100, 96)), "");
    EXPECT_EQ(ProblemOf(Of(1920, 1080, 300)), "");
    // An A0 sheet as a drawing.
    EXPECT_EQ(ProblemOf(Of(4494, 3179, 1200, PictureFormat::Pdf)), "");
}

TEST(PictureProblem, IsASideThatShowsNothing) {
    EXPECT_EQ(ProblemOf(Of(99, 400, 96)),
              "That is too small to show anything. Choose at least 26 mm, which are "
              "100 pixels, on each side.");
}

TEST(PictureProblem, IsTooManyPixels) {
    // 20000 x 20000, which would be 1.6 GB.
    EXPECT_THAT(ProblemOf(Of(1600, 1600, 1200)), HasSubstr("20000 × 20000 pixels are too many"));
    EXPECT_THAT(ProblemOf(Of(19'000, 200, 192)), HasSubstr("38000 × 400 pixels are too many"));
    EXPECT_EQ(ProblemOf(Of(1600, 1600, 1200, PictureFormat::Svg)), "");
}

TEST(PictureProblem, IsAWallOfPaper) {
    EXPECT_EQ(ProblemOf(Of(400, 20'001, 96, PictureFormat::Pdf)),
              "That is too large. Choose at most 5292 mm on each side.");
}

} // namespace
