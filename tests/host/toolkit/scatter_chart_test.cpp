// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/chart/scatter_chart.h"

#include <QGuiApplication>
#include <QImage>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

QPalette PaletteOf(const QColor& ground, const QColor& text) {
    QPalette palette;
    palette.setColor(QPalette::Base, ground);
    palette.setColor(QPalette::Text, text);
    return palette;
}

/// Number of pixels of nearly this colour.
int Count(const QImage& image, const QColor& color) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            count += std::abs(pixel.red() - color.red()) + std::abs(pixel.green() - color.green()) +
                         std::abs(pixel.blue() - color.blue()) <
                     120;
        }
    }
    return count;
}

TEST(ScatterChart, DrawsPointsFromLeftToRight) {
    owl::ScatterChart chart;
    chart.SetPoints({{3, 30}, {1, 10}, {2, 20}, {1, 5}});
    EXPECT_THAT(chart.Points(), ElementsAre(QPointF(1, 10), QPointF(1, 5), QPointF(2, 20), QPointF(3, 30)));
}

TEST(ScatterChart, LeavesOutWhatIsNoNumber) {
    owl::ScatterChart chart;
    chart.SetPoints({{kNan, 1}, {1, 2}, {2, kNan}, {kInfinity, 1}, {3, -kInfinity}});
    EXPECT_THAT(chart.Points(), ElementsAre(QPointF(1, 2)));
    EXPECT_TRUE(chart.Range().contains(QPointF(1, 2)));
}

TEST(ScatterChart, DrawsTheLineOverItsPoints) {
    owl::ScatterChart chart;
    chart.SetLine(2, 1);
    EXPECT_EQ(chart.Line(), std::nullopt);
    chart.SetPoints({{1, 4}, {5, 10}});
    EXPECT_EQ(chart.Line(), QLineF(1, 3, 5, 11));
    chart.SetPoints({{0, 4}, {5, 10}});
    EXPECT_EQ(chart.Line(), QLineF(0, 1, 5, 11));
    chart.ClearLine();
    EXPECT_EQ(chart.Line(), std::nullopt);
}

TEST(ScatterChart, DrawsNoLineThatIsNoNumber) {
    owl::ScatterChart chart;
    chart.SetPoints({{1, 4}, {5, 10}});
    chart.SetLine(1, 0);
    chart.SetLine(kNan, 1);
    EXPECT_EQ(chart.Line(), std::nullopt);
    chart.SetLine(1, kInfinity);
    EXPECT_EQ(chart.Line(), std::nullopt);
}

TEST(ScatterChart, HasAxesThatHoldPointsAndLineAndEndAtRoundNumbers) {
    owl::ScatterChart chart;
    EXPECT_EQ(chart.Range(), QRectF(0, 0, 1, 1));
    chart.SetPoints({{0.3, -7}, {9.6, 41}});
    EXPECT_EQ(chart.Range(), QRectF(QPointF(0, -10), QPointF(10, 50)));
    chart.SetLine(0, 90);
    EXPECT_TRUE(chart.Range().top() <= -7 && chart.Range().bottom() >= 90);
    chart.SetPoints({});
    EXPECT_EQ(chart.Range(), QRectF(0, 0, 1, 1));
}

TEST(ScatterChart, ShowsPointsAndLineOnLightAndDarkGround) {
    struct Case {
        QColor ground, text, points, line;
    };
    const Case cases[] = {
        {Qt::white, Qt::black, QColor(0x1f, 0x5f, 0xb4), QColor(0xc8, 0x50, 0x00)},
        {QColor(30, 30, 30), Qt::white, QColor(0x6c, 0xb6, 0xff), QColor(0xff, 0xa9, 0x4d)}};
    owl::ScatterChart chart;
    chart.resize(400, 300);
    chart.SetPoints({{0.5, 1.5}, {1.3, 3.3}, {2.7, 2.1}, {3.6, 4.6}});
    for (const Case& one : cases) {
        chart.setPalette(PaletteOf(one.ground, one.text));
        chart.ClearLine();
        const QImage without = chart.grab().toImage();
        EXPECT_GT(Count(without, one.ground), 80'000);
        EXPECT_GE(Count(without, one.points), 4 * 4) << "circles of 3 by 3";
        EXPECT_LE(Count(without, one.points), 4 * 12) << "circles of 3 by 3";
        EXPECT_EQ(Count(without, one.line), 0);
        chart.SetLine(1.1, 0);
        EXPECT_GT(Count(chart.grab().toImage(), one.line), 150);
    }
}

} // namespace
