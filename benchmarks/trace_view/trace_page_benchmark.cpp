// SPDX-License-Identifier: GPL-3.0-or-later
// A page of traces, 1600 × 900 logical pixels: 64 channels, 10 s at 512 Hz. Other pages have as many points
// as their columns.
#include "benchmarks/window_benchmarks.h"
#include "host/review/app/traces/trace_painter.h"
#include "host/toolkit/painter_dc.h"

#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace orvanta::review;

constexpr int kChannels = 64;
constexpr double kRate = 512;
constexpr double kSeconds = 10;
constexpr owl::TRect kWindow{0, 0, 1600, 900};

/// Pink-like noise with alpha waves, µV.
std::vector<float> Eeg(std::mt19937& random) {
    std::normal_distribution<float> noise(0, 4);
    std::vector<float> values;
    float slow = 0;
    for (int i = 0; i < static_cast<int>(kRate * kSeconds); ++i) {
        slow = 0.98F * slow + noise(random);
        values.push_back(slow + 15 * std::sin(0.12F * static_cast<float>(i)) + noise(random));
    }
    return values;
}

struct Page {
    std::vector<TraceChannel> channels;
    std::vector<TraceLine> lines;
    PageInput input;
};

/// \param columns 0 for all samples
Page MakePage(int columns) {
    Page page;
    std::mt19937 random(1);
    page.channels.resize(kChannels);
    page.lines.resize(kChannels);
    page.input.layout = LayOutTraces(kWindow, {12, 60, kChannels, {}});
    page.input.colors = ColorsFor(0xFFFFFF, 0xF0F0F0, 0);
    page.input.total = 3600;
    for (int i = 0; i < kChannels; ++i) {
        TraceChannel& channel = page.channels[static_cast<std::size_t>(i)];
        TraceLine& line = page.lines[static_cast<std::size_t>(i)];
        channel.name = "EEG" + std::to_string(i);
        channel.unit = "µV";
        channel.type = 0x20001;
        channel.rate = kRate;
        const std::vector<float> values = Eeg(random);
        if (columns == 0) {
            line.runs.push_back({0, 1 / kRate, values});
        } else {
            line.columns.resize(static_cast<std::size_t>(columns));
            for (std::size_t c = 0; c < line.columns.size(); ++c) {
                const auto first =
                    values.begin() + static_cast<std::ptrdiff_t>(c * values.size() / line.columns.size());
                const auto last =
                    std::max(first + 1, values.begin() + static_cast<std::ptrdiff_t>((c + 1) * values.size() /
                                                                                     line.columns.size()));
                const auto [low, high] = std::minmax_element(first, last);
                line.columns[c] = {*low, *high};
            }
        }
        page.input.lines.push_back({&channel, &line, {2, 0, page.input.layout.YOf(i)}, false});
    }
    return page;
}

/// Arguments: scale in percent, points of a line: 0 all samples, 1 columns of the screen.
void TracePage(benchmark::State& state) {
    const double scale = static_cast<double>(state.range(0)) / 100;
    const Page page = MakePage(state.range(1) == 0 ? 0 : static_cast<int>(1500 * scale));
    QImage image(static_cast<int>(kWindow.Width() * scale), static_cast<int>(kWindow.Height() * scale),
                 QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    orvanta::MeasureRounds(state, [&] {
        QPainter painter(&image);
        owl::PainterDC dc(painter);
        PaintPage(dc, page.input, {});
    });
}
BENCHMARK(TracePage)
    ->ArgNames({"scale", "columns"})
    ->ArgsProduct({{100, 200}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[]) {
    return orvanta::RunWindowBenchmarks(argc, argv);
}
