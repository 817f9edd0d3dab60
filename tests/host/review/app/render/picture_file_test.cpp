// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/render/picture_file.h"

#include <QImage>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::review;
using testing::HasSubstr;
using testing::StartsWith;

constexpr owl::TColor kRed = owl::Rgb(255, 0, 0);

Picture RedCorner(double scale) {
    return {{40, 30}, scale, "some.edf", [](owl::TDC& dc) {
                dc.FillRect({0, 0, 10, 10}, kRed);
                dc.TextOut({12, 12}, "Fp1");
            }};
}

QImage Pixels(const Picture& picture) {
    return QImage::fromData(QByteArray::fromStdString(Encode(picture, PictureFormat::Png)), "png");
}

TEST(FormatOf, GoesByTheEndingWhateverItsCase) {
    EXPECT_EQ(FormatOf("a.png"), PictureFormat::Png);
    EXPECT_EQ(FormatOf("folder.png/a.b.SVG"), PictureFormat::Svg);
    EXPECT_EQ(FormatOf("a.Pdf"), PictureFormat::Pdf);
    for (const char* file : {"", "-", "png", "a.jpg", "a.png/", "a.pngx"}) {
        EXPECT_EQ(FormatOf(file), std::nullopt) << file;
    }
}

TEST(Encode, PaintsPixelsOnWhite) {
    const QImage image = Pixels(RedCorner(1));
    EXPECT_EQ(image.size(), QSize(40, 30));
    EXPECT_EQ(image.pixelColor(9, 9), QColor(255, 0, 0));
    EXPECT_EQ(image.pixelColor(10, 9), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(39, 29), QColor(Qt::white));
}

TEST(Encode, ScalesPixelsAndSaysTheirResolution) {
    const QImage image = Pixels(RedCorner(2.5));
    EXPECT_EQ(image.size(), QSize(100, 75));
    EXPECT_EQ(image.pixelColor(24, 24), QColor(255, 0, 0));
    EXPECT_EQ(image.pixelColor(25, 24), QColor(Qt::white));
    // 240 dots per inch of 0.0254 m.
    EXPECT_EQ(image.dotsPerMeterX(), 9449);
    EXPECT_EQ(image.dotsPerMeterY(), 9449);
}

TEST(Encode, WritesTheTitleIntoEveryFormat) {
    EXPECT_EQ(Pixels(RedCorner(1)).text("Title"), "some.edf");
    EXPECT_THAT(Encode(RedCorner(1), PictureFormat::Svg), HasSubstr("<title>some.edf</title>"));
    // UTF-16, as PDF has it.
    EXPECT_THAT(Encode(RedCorner(1), PictureFormat::Pdf),
                HasSubstr(std::string("/Title (\xfe\xff\0s\0o\0m\0e\0.\0e\0d\0f)", 26)));
}

TEST(Encode, MakesAPdfPageOfTheSizeOnPaperWithItsFont) {
    const std::string pdf = Encode(RedCorner(1), PictureFormat::Pdf);
    EXPECT_THAT(pdf, StartsWith("%PDF-1."));
    // 40 and 30 pixels at 96 to an inch, in whole points of 1/72.
    EXPECT_THAT(pdf, HasSubstr("/MediaBox [0 0 30.000000 23.000000]"));
    EXPECT_THAT(pdf, HasSubstr("/FontFile2"));
}

TEST(Encode, LeavesTheVectorsOfASvgUnscaled) {
    EXPECT_EQ(Encode(RedCorner(1), PictureFormat::Svg), Encode(RedCorner(2), PictureFormat::Svg));
}

} // namespace
