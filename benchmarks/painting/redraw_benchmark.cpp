// SPDX-License-Identifier: GPL-3.0-or-later
// A window of 8 × 8 plots, 1600 × 1000 logical pixels, each with a frame, 8 axis numbers, a curve of 250
// points and a mark at every point.
#include "benchmarks/window_benchmarks.h"
#include "host/toolkit/painter_dc.h"

#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int kPlotsInRow = 8;
constexpr int kPlotWidth = 200;
constexpr int kPlotHeight = 125;
constexpr int kPoints = 250;
constexpr int kNumbers = 8;
constexpr owl::TColor kColor = owl::Rgb(20, 60, 200);

struct Plot {
    owl::TRect frame;
    std::vector<owl::TPoint> curve;
};

std::vector<Plot> MakePlots() {
    std::mt19937 random(1);
    std::uniform_int_distribution step(-6, 6);
    std::vector<Plot> plots;
    for (int i = 0; i < kPlotsInRow * kPlotsInRow; ++i) {
        const int left = i % kPlotsInRow * kPlotWidth;
        const int top = i / kPlotsInRow * kPlotHeight;
        Plot plot{{left, top, left + kPlotWidth - 2, top + kPlotHeight - 2}, {}};
        int y = kPlotHeight / 2;
        for (int point = 0; point < kPoints; ++point) {
            y = std::clamp(y + step(random), 5, kPlotHeight - 7);
            plot.curve.push_back({left + point * 3 / 4, top + y});
        }
        plots.push_back(std::move(plot));
    }
    return plots;
}

void Draw(owl::TDC& dc, const Plot& plot, int width, bool marks) {
    dc.FrameRect(plot.frame, owl::Rgb(128, 128, 128));
    for (int i = 0; i < kNumbers; ++i) {
        dc.TextOut({plot.frame.left + i * 24, plot.frame.bottom - 15}, std::to_string(i * 5));
    }
    dc.SelectPen({kColor, width});
    dc.Polyline(plot.curve);
    if (marks) {
        dc.SelectPen({kColor, 1});
        dc.SelectBrush({kColor});
        for (const owl::TPoint& point : plot.curve) {
            dc.Ellipse(owl::TRect{point.x, point.y, point.x + 1, point.y + 1}.InflatedBy(2, 2));
        }
    }
}

/// Arguments: scale in percent, width of the pen, marks or none.
void Redraw(benchmark::State& state) {
    const double scale = static_cast<double>(state.range(0)) / 100;
    const std::vector<Plot> plots = MakePlots();
    QImage image(static_cast<int>(kPlotsInRow * kPlotWidth * scale),
                 static_cast<int>(kPlotsInRow * kPlotHeight * scale), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    orvanta::MeasureRounds(state, [&] {
        QPainter painter(&image);
        owl::PainterDC dc(painter);
        for (const Plot& plot : plots) {
            Draw(dc, plot, static_cast<int>(state.range(1)), state.range(2) != 0);
        }
    });
}
BENCHMARK(Redraw)
    ->ArgNames({"scale", "pen", "marks"})
    ->ArgsProduct({{100, 150, 200}, {1, 2}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[]) {
    return orvanta::RunWindowBenchmarks(argc, argv);
}
