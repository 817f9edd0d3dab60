// SPDX-License-Identifier: GPL-3.0-or-later
// A page of mean spectra at 1920 × 1080 logical pixels: two spectra in every slot with points, drop lines, SD
// and bands, 65 bins each.
#include "benchmarks/window_benchmarks.h"
#include "host/toolkit/painter_dc.h"
#include "spectrum_view/painting/mean_plot.h"
#include "tests/spectrum_view/painting/sample_plots.h"

#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>

#include <vector>

namespace {

using namespace orvanta;

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;

std::vector<spectrum_view::PlotInput> Plots(int side, bool compared) {
    std::vector<spectrum_view::PlotInput> plots;
    for (int i = 0; i < side * side; ++i) {
        const int column = i % side;
        const int row = i / side;
        plots.push_back(test::ComparedPlot({kWidth * column / side, kHeight * row / side,
                                            kWidth * (column + 1) / side, kHeight * (row + 1) / side}));
        if (!compared) {
            plots.back().p.clear();
            plots.back().ratio.clear();
        }
    }
    return plots;
}

/// Arguments: slots per side, scale in percent, with marks and ratio or without.
void MeanPlots(benchmark::State& state) {
    const auto plots = Plots(static_cast<int>(state.range(0)), state.range(2) != 0);
    const double scale = static_cast<double>(state.range(1)) / 100;
    QImage image(static_cast<int>(kWidth * scale), static_cast<int>(kHeight * scale), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    MeasureRounds(state, [&] {
        QPainter painter(&image);
        owl::PainterDC dc(painter);
        for (const auto& plot : plots) {
            spectrum_view::PaintMeanPlot(dc, plot);
        }
    });
}
BENCHMARK(MeanPlots)
    ->ArgNames({"side", "scale", "compared"})
    ->ArgsProduct({{8, 16}, {100, 200}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

} // namespace
