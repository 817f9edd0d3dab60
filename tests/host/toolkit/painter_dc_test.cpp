// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/painter_dc.h"

#include "host/toolkit/qt_painting.h"

#include <QBuffer>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

using Rows = std::vector<std::string>;

constexpr owl::TColor kBlack = 0;
constexpr owl::TColor kRed = 0x0000FF;

/// A white picture of 6 × 5 pixels to draw on.
class PainterDCTest : public testing::Test {
protected:
    PainterDCTest() { image.fill(Qt::white); }

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
    owl::PainterDC dc{painter};
};

TEST_F(PainterDCTest, FillsWithoutTheRightAndBottomEdge) {
    dc.FillRect({1, 1, 3, 4}, kBlack);
    EXPECT_EQ(Pixels(), (Rows{"......", ".##...", ".##...", ".##...", "......"}));
}

TEST_F(PainterDCTest, FramesInside) {
    dc.FrameRect({0, 0, 6, 5}, kBlack);
    EXPECT_EQ(Pixels(), (Rows{"######", "#....#", "#....#", "#....#", "######"}));
}

TEST_F(PainterDCTest, DrawsTheOutlineOfARectangleInsideAndFillsIt) {
    dc.SelectBrush({kRed});
    dc.Rectangle({1, 1, 5, 4});
    EXPECT_EQ(Pixels(), (Rows{"......", ".####.", ".#rr#.", ".####.", "......"}));
}

TEST_F(PainterDCTest, CoversBothEndsOfALine) {
    dc.Line({1, 2}, {4, 2});
    EXPECT_EQ(Pixels(), (Rows{"......", "......", ".####.", "......", "......"}));
}

TEST_F(PainterDCTest, ReplacesTheClip) {
    dc.SetClip({0, 0, 1, 5});
    dc.SetClip({2, 0, 4, 2});
    dc.FillRect({0, 0, 6, 5}, kBlack);
    EXPECT_EQ(Pixels(), (Rows{"..##..", "..##..", "......", "......", "......"}));
    dc.ClearClip();
    dc.FillRect({0, 4, 6, 5}, kBlack);
    EXPECT_EQ(Pixels().back(), "######");
}

TEST_F(PainterDCTest, LaysAColourOver) {
    dc.BlendRect({0, 0, 1, 1}, kRed, 255);
    dc.BlendRect({1, 0, 2, 1}, kRed, 0);
    dc.BlendRect({2, 0, 3, 1}, kRed, 128);
    EXPECT_EQ(Pixels().front(), "r.?...");
}

TEST_F(PainterDCTest, DrawsAPictureScaledAndNoneThatIsTooShort) {
    dc.DrawImage({0, 0, 4, 2}, {2, 1, {0xFF000000, 0xFFFF0000}});
    dc.DrawImage({0, 2, 4, 4}, {2, 1, {0xFF000000}});
    EXPECT_EQ(Pixels(), (Rows{"##rr..", "##rr..", "......", "......", "......"}));
}

TEST_F(PainterDCTest, AnswersTheAlignmentUntilNow) {
    EXPECT_EQ(dc.SetTextAlign(owl::TextAlign::Right), owl::TextAlign::Left);
    EXPECT_EQ(dc.SetTextAlign(owl::TextAlign::Center), owl::TextAlign::Right);
}

TEST_F(PainterDCTest, DrawsNothingWithoutPenAndBrush) {
    dc.SelectPen({kBlack, 1, owl::PenStyle::None});
    dc.SelectBrush({kRed, true});
    dc.Rectangle({0, 0, 6, 5});
    dc.Ellipse({0, 0, 6, 5});
    dc.Line({0, 0}, {5, 4});
    dc.Polygon(std::vector<owl::TPoint>{{0, 0}, {5, 0}, {2, 4}});
    EXPECT_EQ(Pixels(), (Rows{"......", "......", "......", "......", "......"}));
}

TEST_F(PainterDCTest, FillsAPolygonBetweenTheMiddlesOfItsCorners) {
    dc.SelectPen({kRed});
    dc.SelectBrush({kBlack});
    dc.Polygon(std::vector<owl::TPoint>{{1, 1}, {4, 1}, {4, 3}, {1, 3}});
    EXPECT_EQ(Pixels(), (Rows{"......", ".rrrr.", ".r##r.", ".rrrr.", "......"}));
}

TEST_F(PainterDCTest, DrawsAStepCurveCrisp) {
    dc.Polyline(std::vector<owl::TPoint>{{0, 4}, {0, 1}, {3, 1}, {3, 3}});
    EXPECT_EQ(Pixels(), (Rows{"......", "####..", "#..#..", "#..#..", "#....."}));
}

TEST_F(PainterDCTest, DrawsWithTheToolsSelectedLast) {
    dc.SelectBrush({kRed});
    dc.SelectPen({kRed});
    dc.Line({0, 0}, {5, 0});
    dc.SelectPen({kBlack});
    dc.Line({0, 1}, {5, 1});
    dc.SelectPen({kRed, 1, owl::PenStyle::Dotted});
    dc.Line({0, 2}, {5, 2});
    EXPECT_EQ(Pixels(), (Rows{"rrrrrr", "######", "r..r..", "......", "......"}));
}

/// A larger white picture.
class WidePicture : public testing::Test {
protected:
    WidePicture() { image.fill(Qt::white); }
    bool IsBlack(int x, int y) const { return image.pixelColor(x, y) == Qt::black; }

    QImage image{1000, 1000, QImage::Format_RGB32};
    QPainter painter{&image};
    owl::PainterDC dc{painter};
};

TEST_F(WidePicture, GoesOnWithItsDotsAlongALongLine) {
    dc.SelectPen({kBlack, 1, owl::PenStyle::Dotted});
    dc.Line({10, 5}, {999, 5});
    dc.Line({5, 10}, {5, 999});
    for (int i = 10; i < 1000; ++i) {
        EXPECT_EQ(IsBlack(i, 5), (i - 10) % 3 == 0) << i;
        EXPECT_EQ(IsBlack(5, i), (i - 10) % 3 == 0) << i;
    }
}

TEST_F(WidePicture, DotsStandWhereTheyDoWithoutAClip) {
    dc.SelectPen({kBlack, 1, owl::PenStyle::Dotted});
    dc.SetClip({20, 20, 100, 100});
    dc.Line({10, 25}, {200, 25});
    dc.Line({25, 10}, {25, 200});
    for (int i = 0; i < 200; ++i) {
        const bool dot = i >= 20 && i < 100 && (i - 10) % 3 == 0;
        EXPECT_EQ(IsBlack(i, 25), dot) << i;
        EXPECT_EQ(IsBlack(25, i), dot) << i;
    }
}

TEST(PainterDC, DrawsTheSameDotsWhereItsPixelsCannotBeWritten) {
    QImage image(12, 12, QImage::Format_RGB888);
    image.fill(Qt::white);
    QPainter painter(&image);
    owl::PainterDC dc(painter);
    dc.SelectPen({kBlack, 1, owl::PenStyle::Dotted});
    dc.Line({1, 5}, {9, 5});
    for (int x = 0; x < 12; ++x) {
        EXPECT_EQ(image.pixelColor(x, 5) == Qt::black, x == 1 || x == 4 || x == 7) << x;
    }
}

TEST_F(WidePicture, AWideCurveStaysInsideTheClip) {
    dc.SelectPen({kBlack, 2});
    dc.SetClip({20, 0, 40, 1000});
    dc.Polyline(std::vector<owl::TPoint>{{10, 10}, {30, 50}, {50, 90}});
    EXPECT_TRUE(IsBlack(30, 50));
    EXPECT_EQ(image.pixelColor(19, 28), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(40, 70), QColor(Qt::white));
}

TEST_F(WidePicture, DotsAreInTheColorSelectedLast) {
    dc.SelectPen({kRed, 1, owl::PenStyle::Dotted});
    dc.Line({10, 5}, {10, 50});
    dc.SelectPen({kBlack, 1, owl::PenStyle::Dotted});
    dc.Line({10, 5}, {10, 50});
    EXPECT_TRUE(IsBlack(10, 5));
    EXPECT_TRUE(IsBlack(10, 50));
    EXPECT_EQ(image.pixelColor(10, 6), QColor(Qt::white));
}

TEST_F(WidePicture, FillsAPolygonOfManyCornersWithSmoothEdges) {
    dc.SelectPen({kBlack, 1, owl::PenStyle::None});
    dc.SelectBrush({kBlack});
    std::vector<owl::TPoint> comb{{0, 900}};
    for (int i = 0; i < 20; ++i) {
        comb.push_back({20 * i, i % 2 == 0 ? 100 : 103});
    }
    comb.push_back({380, 900});
    dc.Polygon(comb);
    EXPECT_TRUE(IsBlack(190, 500));
    EXPECT_TRUE(IsBlack(10, 110));
    EXPECT_EQ(image.pixelColor(190, 90), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(390, 500), QColor(Qt::white));
    int between = 0;
    for (int x = 0; x < 380; ++x) {
        for (int y = 98; y < 106; ++y) {
            const int value = image.pixelColor(x, y).value();
            between += value > 0 && value < 255 ? 1 : 0;
        }
    }
    EXPECT_GT(between, 100);
}

TEST_F(WidePicture, ACurveIsTheSameWithThePointsOnItsWay) {
    dc.SelectPen({kBlack, 2});
    dc.Polyline(std::vector<owl::TPoint>{{10, 10}, {50, 30}, {90, 30}});
    const QImage few = image.copy();
    image.fill(Qt::white);
    dc.Polyline(std::vector<owl::TPoint>{{10, 10}, {20, 15}, {50, 30}, {60, 30}, {61, 30}, {90, 30}});
    EXPECT_EQ(image, few);
}

TEST(PainterDC, MeasuresTextsAsTheFontDoes) {
    QImage image(10, 10, QImage::Format_RGB32);
    QPainter painter(&image);
    owl::PainterDC dc(painter);
    for (const owl::TFont& font : {owl::TFont{"Verdana", 12}, owl::TFont{"Verdana", 30, true}}) {
        dc.SelectFont(font);
        const QFontMetrics metrics(owl::ToQFont(font));
        for (int again = 0; again < 2; ++again) {
            EXPECT_EQ(dc.GetTextExtent("10 µV²/Hz").cx, metrics.horizontalAdvance("10 µV²/Hz"));
            EXPECT_EQ(dc.GetTextExtent("10 µV²/Hz").cy, metrics.height());
        }
    }
}

TEST(PainterDC, AlignsTextsAtTheirWidth) {
    const auto drawn = [](owl::TextAlign align, auto x) {
        QImage image(80, 20, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        owl::PainterDC dc(painter);
        dc.SetTextColor(kRed);
        dc.SetTextAlign(align);
        dc.TextOut({x(dc.GetTextExtent("Fp1").cx), 2}, "Fp1");
        return image;
    };
    const QImage left = drawn(owl::TextAlign::Left, [](int) { return 10; });
    EXPECT_EQ(drawn(owl::TextAlign::Right, [](int width) { return 10 + width; }), left);
    EXPECT_EQ(drawn(owl::TextAlign::Center, [](int width) { return 10 + width / 2; }), left);
}

TEST(PainterDC, GivesThePainterBackAsItWas) {
    QImage image(10, 10, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setPen(QPen(Qt::green, 3));
    painter.setClipRect(1, 1, 5, 5);
    {
        owl::PainterDC dc(painter);
        dc.SelectPen({kRed, 2});
        dc.SetClip({0, 0, 2, 2});
        dc.Line({0, 0}, {9, 5});
    }
    EXPECT_EQ(painter.pen(), QPen(Qt::green, 3));
    EXPECT_EQ(painter.clipBoundingRect(), QRectF(1, 1, 5, 5));
    EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
}

TEST(PainterDC, WritesTextAndCurvesIntoADocument) {
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&file);
        QPainter painter(&writer);
        owl::PainterDC dc(painter);
        dc.SelectPen({kRed, 2});
        dc.Polyline(std::vector<owl::TPoint>{{0, 0}, {90, 50}, {180, 0}});
        dc.Ellipse({10, 10, 15, 15});
        dc.TextOut({5, 5}, "Fp1");
    }
    EXPECT_TRUE(file.data().startsWith("%PDF"));
    // A document keeps outlines and letters; marks copied as pictures would coarsen in print.
    EXPECT_TRUE(file.data().contains("/Type /Font"));
    EXPECT_FALSE(file.data().contains("/Subtype /Image"));
}

TEST_F(PainterDCTest, DrawsACurveInThePensColourThroughTheMiddleOfPixels) {
    dc.SelectPen({kRed});
    dc.Curve(std::vector<owl::TPointF>{{-1, 1.5}, {7, 1.5}}, 1);
    EXPECT_EQ(Pixels(), (Rows{"......", "rrrrrr", "......", "......", "......"}));
}

TEST_F(PainterDCTest, MixesTheCurvesColourWhereItCoversAPixelInPart) {
    dc.Curve(std::vector<owl::TPointF>{{0, 2.25}, {6, 2.25}}, 1);
    EXPECT_EQ(image.pixelColor(3, 1), QColor(191, 191, 191));
    EXPECT_EQ(image.pixelColor(3, 2), QColor(64, 64, 64));
}

TEST_F(PainterDCTest, BreaksACurveAtAPointThatIsNotFinite) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    dc.Curve(std::vector<owl::TPointF>{{-1, 1.5}, {2.5, 1.5}, {3, none}, {3.5, 1.5}, {9, 1.5}}, 1);
    EXPECT_EQ(Pixels()[1], "##??##");
}

TEST_F(PainterDCTest, KeepsACurveInsideTheClip) {
    dc.SetClip({2, 0, 4, 5});
    dc.Curve(std::vector<owl::TPointF>{{0.5, 1.5}, {5.5, 1.5}}, 1);
    EXPECT_EQ(Pixels()[1], "..##..");
}

TEST_F(PainterDCTest, DrawsACurveFinerThanAPixelWhereTheScreenIs) {
    QImage fine(12, 10, QImage::Format_RGB32);
    fine.fill(Qt::white);
    fine.setDevicePixelRatio(2);
    QPainter finePainter(&fine);
    owl::PainterDC(finePainter).Curve(std::vector<owl::TPointF>{{0, 1.75}, {6, 1.75}}, 0.5);
    EXPECT_EQ(fine.pixelColor(6, 2), QColor(Qt::white));
    EXPECT_EQ(fine.pixelColor(6, 3), QColor(Qt::black));
    EXPECT_EQ(fine.pixelColor(6, 4), QColor(Qt::white));
}

TEST_F(PainterDCTest, DrawsTheSameCurveWhereItsPixelsCannotBeWritten) {
    QImage turned(6, 5, QImage::Format_RGB32);
    turned.fill(Qt::white);
    QPainter turnedPainter(&turned);
    turnedPainter.translate(6, 0);
    turnedPainter.rotate(90);
    owl::PainterDC(turnedPainter).Curve(std::vector<owl::TPointF>{{0, 1.5}, {5, 1.5}}, 1);
    EXPECT_EQ(turned.pixelColor(4, 2), QColor(Qt::black));
    EXPECT_EQ(turned.pixelColor(2, 2), QColor(Qt::white));
}

} // namespace
