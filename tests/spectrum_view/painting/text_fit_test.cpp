// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/text_fit.h"

#include "host/toolkit/painter_dc.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace orvanta::spectrum_view;

constexpr owl::TRect kArea{0, 0, 100, 50};

owl::TSize TenByTwelve(std::string_view text) {
    return {10 * static_cast<int>(text.size()), 12};
}

/// Rows of a line with a pixel more dark than light of digits and capitals, tenths of a pixel; the pale rim
/// of round digits does not count.
struct InkedRows {
    int line = 0; ///< height of the line, pixels
    int first = 0;
    int end = 0;
};

InkedRows InkOf(const std::string& face, int fontHeight, int scale) {
    QImage image(200 * scale, 80 * scale, QImage::Format_RGB32);
    image.fill(Qt::white);
    image.setDevicePixelRatio(scale);
    QPainter painter(&image);
    owl::PainterDC dc(painter);
    dc.SelectFont({face, fontHeight, false, false});
    dc.TextOut({0, 0}, "-0.123456789Hz");
    InkedRows rows{dc.GetTextExtent("0").cy, 10000, 0};
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < 128) {
                rows.first = std::min(rows.first, 10 * y / scale);
                rows.end = std::max(rows.end, (10 * (y + 1) + scale - 1) / scale);
            }
        }
    }
    return rows;
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

TEST(PlacedText, OfDigitsCoversTheirRowsAndIsDrawnInItsLine) {
    const PlacedText placed = PlacedDigits("10", 40, 7, owl::TextAlign::Left, kArea, TenByTwelve);
    EXPECT_EQ(placed.rect, (owl::TRect{40, 7, 60, 16}));
    EXPECT_EQ(placed.above, 1);
}

TEST(DigitRows, HoldEveryPixelOfDigitsAndCapitals) {
    for (const char* face : {"Verdana", "DejaVu Sans", "Liberation Sans"}) {
        for (const int scale : {1, 2, 3}) {
            for (int height = 9; height <= 60; ++height) {
                const InkedRows ink = InkOf(face, height, scale);
                const DigitRows rows = DigitRowsOf(ink.line);
                ASSERT_LT(ink.first, ink.end);
                EXPECT_GE(ink.first, 10 * rows.above) << face << " " << height << " x" << scale;
                EXPECT_LE(ink.end, 10 * (rows.above + rows.height)) << face << " " << height << " x" << scale;
            }
        }
    }
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
