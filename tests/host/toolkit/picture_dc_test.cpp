// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/picture_dc.h"

#include "host/toolkit/qt_painting.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Rows = std::vector<std::string>;

constexpr owl::TColor kBlack = 0;
constexpr owl::TColor kRed = 0x0000FF;

/// A white picture of 6 × 5 pixels to draw on.
class PictureDCTest : public testing::Test {
protected:
    PictureDCTest() { image.fill(Qt::white); }

    /// Black "#", red "r", white ".", anything else "?".
    Rows Pixels() const {
        Rows rows;
        for (int y = 0; y < image.height(); ++y) {
            std::string row;
            for (int x = 0; x < image.width(); ++x) {
                const owl::TColor color = owl::FromQColor(image.pixelColor(x, y));
                row += color == kBlack ? '#' : color == kRed ? 'r' : color == 0xFFFFFF ? '.' : '?';
            }
            rows.push_back(row);
        }
        return rows;
    }

    QImage image{6, 5, QImage::Format_RGB32};
    QPainter painter{&image};
    owl::PictureDC dc{painter};
};

TEST_F(PictureDCTest, FillsWithoutTheRightAndBottomEdge) {
    dc.FillRect({1, 1, 3, 4}, kBlack);
    EXPECT_EQ(Pixels(), (Rows{"......", ".##...", ".##...", ".##...", "......"}));
}

TEST_F(PictureDCTest, FramesInside) {
    dc.FrameRect({0, 0, 6, 5}, kBlack);
    EXPECT_EQ(Pixels(), (Rows{"######", "#....#", "#....#", "#....#", "######"}));
}

TEST_F(PictureDCTest, DrawsTheOutlineOfARectangleInsideAndFillsIt) {
    dc.SelectBrush({kRed});
    dc.Rectangle({1, 1, 5, 4});
    EXPECT_EQ(Pixels(), (Rows{"......", ".####.", ".#rr#.", ".####.", "......"}));
}

TEST_F(PictureDCTest, CoversBothEndsOfALine) {
    dc.Line({1, 2}, {4, 2});
    EXPECT_EQ(Pixels(), (Rows{"......", "......", ".####.", "......", "......"}));
}

TEST_F(PictureDCTest, ReplacesTheClip) {
    dc.SetClip({0, 0, 1, 5});
    dc.SetClip({2, 0, 4, 2});
    dc.FillRect({0, 0, 6, 5}, kBlack);
    EXPECT_EQ(Pixels(), (Rows{"..##..", "..##..", "......", "......", "......"}));
    dc.ClearClip();
    dc.FillRect({0, 4, 6, 5}, kBlack);
    EXPECT_EQ(Pixels().back(), "######");
}

TEST_F(PictureDCTest, LaysAColourOver) {
    dc.BlendRect({0, 0, 1, 1}, kRed, 255);
    dc.BlendRect({1, 0, 2, 1}, kRed, 0);
    dc.BlendRect({2, 0, 3, 1}, kRed, 128);
    EXPECT_EQ(Pixels().front(), "r.?...");
}

TEST_F(PictureDCTest, DrawsAPictureScaledAndNoneThatIsTooShort) {
    dc.DrawImage({0, 0, 4, 2}, {2, 1, {0xFF000000, 0xFFFF0000}});
    dc.DrawImage({0, 2, 4, 4}, {2, 1, {0xFF000000}});
    EXPECT_EQ(Pixels(), (Rows{"##rr..", "##rr..", "......", "......", "......"}));
}

TEST_F(PictureDCTest, AnswersTheAlignmentUntilNow) {
    EXPECT_EQ(dc.SetTextAlign(owl::TextAlign::Right), owl::TextAlign::Left);
    EXPECT_EQ(dc.SetTextAlign(owl::TextAlign::Center), owl::TextAlign::Right);
}

} // namespace
