// SPDX-License-Identifier: GPL-3.0-or-later
// 4 × 4 slots of 8 h of epochs on 1920 × 1080 logical pixels: as many rows as the view gathers for that size
// (512, from 14,400 epochs of 2 s), 65 bins of 0.5 Hz shown, five bands.
#include "benchmarks/window_benchmarks.h"
#include "host/toolkit/painter_dc.h"
#include "spectrum_view/painting/band_colors.h"
#include "spectrum_view/painting/csa_plot.h"
#include "spectrum_view/painting/time_frequency_plot.h"

#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

namespace {

using namespace orvanta::spectrum_view;

constexpr int kGrid = 4;
constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr std::size_t kBins = 513;
constexpr double kHours = 8;

SpectraOverTime Epochs(std::size_t rows, unsigned seed) {
    std::mt19937 random(seed);
    std::chi_squared_distribution<float> power(20);
    SpectraOverTime spectra{kBins, {}, {}};
    const double step = kHours * 3600 / static_cast<double>(rows);
    for (std::size_t row = 0; row < rows; ++row) {
        const double begin = static_cast<double>(row) * step;
        spectra.rows.push_back({begin, begin + step});
        for (std::size_t bin = 0; bin < kBins; ++bin) {
            const double hz = static_cast<double>(bin) * 0.5;
            const double alpha = 12 * (1 + std::sin(begin / 1500)) * std::exp(-std::pow(hz - 10, 2) / 2);
            spectra.values.push_back(static_cast<float>((40 / (1 + hz) + alpha) * power(random) / 20));
        }
    }
    return spectra;
}

std::vector<OverTimeInput> Page(std::size_t rows, bool csa) {
    std::vector<OverTimeInput> page;
    for (int i = 0; i < kGrid * kGrid; ++i) {
        OverTimeInput input;
        const int left = i % kGrid * kWidth / kGrid;
        const int top = i / kGrid * kHeight / kGrid;
        input.frame.slot = {left, top, left + kWidth / kGrid, top + kHeight / kGrid};
        input.frame.label = "Fp1-F7 (µV²/Hz) ";
        input.frame.unit = "µV²/Hz";
        input.frame.vertical = {0, csa ? 150.0 : 30.0, 0};
        input.axis = {0, 32, 0.5, 0, 64};
        const double edges[] = {0.5, 4, 8, 13, 30};
        for (std::size_t band = 0; band < 4; ++band) {
            input.bands.push_back({edges[band],
                                   edges[band + 1],
                                   static_cast<std::uint64_t>(2 * edges[band]),
                                   static_cast<std::uint64_t>(2 * edges[band + 1]),
                                   kBandColors[band],
                                   {}});
        }
        input.spectra = Epochs(rows, static_cast<unsigned>(i));
        input.color = owl::Rgb(0, 0, 160);
        input.end_s = kHours * 3600;
        page.push_back(std::move(input));
    }
    return page;
}

/// Arguments: scale in percent, rows per slot.
template <typename Paint>
void Redraw(benchmark::State& state, bool csa, Paint paint) {
    const double scale = static_cast<double>(state.range(0)) / 100;
    const std::vector<OverTimeInput> page = Page(static_cast<std::size_t>(state.range(1)), csa);
    QImage image(static_cast<int>(kWidth * scale), static_cast<int>(kHeight * scale), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    orvanta::MeasureRounds(state, [&] {
        QPainter painter(&image);
        owl::PainterDC dc(painter);
        for (const OverTimeInput& input : page) {
            paint(dc, input);
        }
    });
}

void CompressedArray(benchmark::State& state) {
    Redraw(state, true, PaintCompressedArray);
}
BENCHMARK(CompressedArray)
    ->Args({100, 512})
    ->Args({200, 512})
    ->Args({100, 60})
    ->Unit(benchmark::kMillisecond);

void TimeFrequency(benchmark::State& state) {
    Redraw(state, false, PaintTimeFrequency);
}
BENCHMARK(TimeFrequency)->Args({100, 512})->Args({200, 512})->Args({100, 60})->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[]) {
    return orvanta::RunWindowBenchmarks(argc, argv);
}
