// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/painter_dc.h"

#include "host/toolkit/qt_painting.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

constexpr int kWidth = 40;
constexpr int kHeight = 20;

/// A white picture of 40 × 20 logical pixels.
struct Canvas {
    explicit Canvas(double scale)
        : image(qRound(kWidth * scale), qRound(kHeight * scale), QImage::Format_RGB32) {
        image.fill(Qt::white);
        image.setDevicePixelRatio(scale);
        painter.begin(&image);
    }

    bool IsBlack(int x, int y) const { return image.pixel(x, y) == 0xFF000000; }
    bool IsWhite(int x, int y) const { return image.pixel(x, y) == 0xFFFFFFFF; }
    bool IsBlackOrWhite() const {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (!IsBlack(x, y) && !IsWhite(x, y)) {
                    return false;
                }
            }
        }
        return true;
    }
    /// Device rows with anything but white, first and one behind the last.
    std::pair<int, int> UsedRows() const {
        int first = image.height();
        int end = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (!IsWhite(x, y)) {
                    first = std::min(first, y);
                    end = y + 1;
                }
            }
        }
        return {first, end};
    }
    /// "#" black, "." white, "?" anything else.
    std::string Row(int y) const {
        std::string row;
        for (int x = 0; x < image.width(); ++x) {
            row += IsBlack(x, y) ? '#' : IsWhite(x, y) ? '.' : '?';
        }
        return row;
    }

    QImage image;
    QPainter painter;
};

int LargestDifference(const QImage& one, const QImage& other) {
    int largest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const int difference = one.pixelColor(x, y).green() - other.pixelColor(x, y).green();
            largest = std::max(largest, std::abs(difference));
        }
    }
    return largest;
}

class PainterDCScales : public testing::TestWithParam<double> {};

INSTANTIATE_TEST_SUITE_P(Scales, PainterDCScales, testing::Values(1.0, 1.25, 1.5, 2.0, 3.0));

TEST_P(PainterDCScales, KeepsALevelLineOfWidthOneInsideItsRow) {
    for (int y = 0; y < kHeight; ++y) {
        Canvas canvas(GetParam());
        owl::PainterDC dc(canvas.painter);
        dc.Line({0, y}, {kWidth - 1, y});
        EXPECT_TRUE(canvas.IsBlackOrWhite());
        const auto [first, end] = canvas.UsedRows();
        EXPECT_EQ(first, qRound(y * GetParam()));
        EXPECT_EQ(end - first, static_cast<int>(GetParam())) << "row " << y;
        EXPECT_LE(end, qRound((y + 1) * GetParam()));
        EXPECT_EQ(canvas.Row(first), std::string(static_cast<std::size_t>(canvas.image.width()), '#'));
    }
}

TEST_P(PainterDCScales, DrawsAnUprightLineLikeALevelOne) {
    Canvas level(GetParam());
    Canvas upright(GetParam());
    owl::PainterDC(level.painter).Line({3, 7}, {12, 7});
    owl::PainterDC(upright.painter).Line({7, 3}, {7, 12});
    for (int a = 0; a < level.image.height(); ++a) {
        for (int b = 0; b < level.image.height(); ++b) {
            ASSERT_EQ(level.image.pixel(a, b), upright.image.pixel(b, a)) << a << ", " << b;
        }
    }
}

TEST_P(PainterDCScales, LeavesNoSeamBetweenFills) {
    Canvas canvas(GetParam());
    owl::PainterDC dc(canvas.painter);
    for (int x = 0; x < kWidth; ++x) {
        dc.FillRect({x, 0, x + 1, 7}, 0);
        dc.FillRect({x, 7, x + 1, kHeight}, 0);
    }
    EXPECT_TRUE(canvas.IsBlackOrWhite());
    for (int y = 0; y < canvas.image.height(); ++y) {
        EXPECT_EQ(canvas.Row(y), std::string(static_cast<std::size_t>(canvas.image.width()), '#'));
    }
}

TEST_P(PainterDCScales, FramesExactlyTheEdgeOfAFill) {
    const owl::TRect rect{3, 5, 30, 18};
    Canvas fill(GetParam());
    Canvas frame(GetParam());
    owl::PainterDC(fill.painter).FillRect(rect, 0);
    {
        owl::PainterDC dc(frame.painter);
        dc.FrameRect(rect, 0);
        dc.FillRect(rect.InflatedBy(-1, -1), 0);
    }
    EXPECT_TRUE(frame.IsBlackOrWhite());
    EXPECT_EQ(frame.UsedRows(), fill.UsedRows());
    // At some scales a logical pixel is wider than the pen by one device pixel.
    if (GetParam() == std::floor(GetParam())) {
        EXPECT_EQ(frame.image, fill.image);
    }
}

TEST_P(PainterDCScales, DrawsSeparateDots) {
    Canvas canvas(GetParam());
    owl::PainterDC dc(canvas.painter);
    dc.SelectPen({0, 1, owl::PenStyle::Dotted});
    dc.Line({0, 4}, {kWidth - 1, 4});
    EXPECT_TRUE(canvas.IsBlackOrWhite());
    const auto dot = static_cast<std::size_t>(GetParam());
    const std::string pattern = std::string(dot, '#') + std::string(2 * dot, '.');
    std::string expected;
    while (expected.size() < static_cast<std::size_t>(canvas.image.width())) {
        expected += pattern;
    }
    expected.resize(static_cast<std::size_t>(canvas.image.width()));
    EXPECT_EQ(canvas.Row(qRound(4 * GetParam())), expected);
}

TEST_P(PainterDCScales, CoversTheRectangleWithItsFillAndOutline) {
    Canvas canvas(GetParam());
    Canvas fill(GetParam());
    owl::PainterDC(fill.painter).FillRect({2, 3, 11, 13}, 0);
    {
        owl::PainterDC dc(canvas.painter);
        dc.SelectBrush({0});
        dc.SelectPen({0, 3});
        dc.Rectangle({2, 3, 11, 13});
    }
    EXPECT_EQ(canvas.image, fill.image);
}

TEST_P(PainterDCScales, PutsTheSameMarkAtEveryPlaceOfTheGrid) {
    Canvas canvas(GetParam());
    owl::PainterDC dc(canvas.painter);
    dc.SelectBrush({owl::Rgb(200, 0, 0)});
    dc.Ellipse({0, 0, 5, 5});
    dc.Ellipse({20, 8, 25, 13});
    const int size = qRound(5 * GetParam());
    const QImage first = canvas.image.copy(0, 0, size, size);
    EXPECT_EQ(canvas.image.copy(qRound(20 * GetParam()), qRound(8 * GetParam()), size, size), first);
    EXPECT_EQ(first.pixelColor(size / 2, size / 2), QColor(200, 0, 0));
    EXPECT_LT(LargestDifference(first, first.mirrored(true, true)), 32);
}

TEST_P(PainterDCScales, ClosesTheCornersOfAWideCurve) {
    Canvas canvas(GetParam());
    owl::PainterDC dc(canvas.painter);
    dc.SelectPen({0, 2});
    dc.Polyline(std::vector<owl::TPoint>{{5, 15}, {15, 5}, {25, 15}, {35, 5}});
    const auto at = [&](double x) { return static_cast<int>(x * GetParam()); };
    EXPECT_LT(canvas.image.pixelColor(at(15.5), at(5.5)).red(), 40);
    EXPECT_LT(canvas.image.pixelColor(at(25.5), at(15.5)).red(), 40);
    EXPECT_TRUE(canvas.IsWhite(at(15.5), at(2)));
    EXPECT_TRUE(canvas.IsWhite(at(15.5), at(9.5)));
}

TEST_P(PainterDCScales, PutsATextBelowTheGivenTop) {
    Canvas canvas(GetParam());
    owl::PainterDC dc(canvas.painter);
    dc.TextOut({2, 3}, "Äg");
    const auto [first, end] = canvas.UsedRows();
    const int height = dc.GetTextExtent("Äg").cy;
    EXPECT_GE(first, static_cast<int>(3 * GetParam()) - 1);
    EXPECT_GT(end - first, height * GetParam() / 2);
    EXPECT_LE(end, std::ceil((3 + height) * GetParam()) + 1);
}

TEST_P(PainterDCScales, DrawsAPictureWithoutSmoothing) {
    Canvas canvas(GetParam());
    owl::PainterDC dc(canvas.painter);
    dc.DrawImage({0, 0, 20, 20}, {2, 1, {0xFF000000, 0xFFFFFFFF}});
    dc.DrawImage({20, 0, 40, 20}, {2, 1, {0x00FF0000, 0xFF000000}});
    EXPECT_TRUE(canvas.IsBlackOrWhite());
    const auto quarter = static_cast<std::size_t>(qRound(10 * GetParam()));
    const std::string row = canvas.Row(3);
    EXPECT_EQ(row.substr(0, quarter - 1), std::string(quarter - 1, '#'));
    EXPECT_EQ(row.substr(quarter + 1, 2 * quarter - 2), std::string(2 * quarter - 2, '.'));
    EXPECT_EQ(row.back(), '#');
}

} // namespace
