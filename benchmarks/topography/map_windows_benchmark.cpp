// SPDX-License-Identifier: GPL-3.0-or-later
// Sixteen map windows of 200 × 200 pixels that get new values, and one of 400 × 400 whose head is turned.
#include "benchmarks/topography/electrodes_for_maps.h"
#include "benchmarks/window_benchmarks.h"
#include "host/chart_view/maps/map_window.h"

#include <memory>
#include <random>
#include <string>

namespace {

constexpr int kMaps = 16;
constexpr int kSide = 200;
constexpr int kHeadSide = 400;

std::vector<ElectInfo> Electrodes(std::int64_t count) {
    std::vector<ElectInfo> electrodes;
    for (const HeadPosition& position : orvanta::SpreadElectrodes(count)) {
        electrodes.push_back({"E" + std::to_string(electrodes.size() + 1), position, true});
    }
    return electrodes;
}

/// Windows whose paint steps the benchmark runs itself.
std::vector<std::unique_ptr<TMapWindow>> Windows(int count, int side,
                                                 const std::vector<ElectInfo>& electrodes, bool threeD) {
    std::vector<std::unique_ptr<TMapWindow>> windows;
    for (int i = 0; i < count; ++i) {
        auto& window = windows.emplace_back(
            std::make_unique<TMapWindow>(nullptr, nullptr, electrodes, true, threeD, 0, "Map", i, 6));
        window->SetMeasureUnit("µV²/Hz");
        window->resize(side, side);
        window->show();
    }
    return windows;
}

/// Smooth fields that change from one to the next.
std::vector<double> Values(const std::vector<ElectInfo>& electrodes, double phase) {
    std::vector<double> values;
    for (const ElectInfo& electrode : electrodes) {
        const HeadPosition& at = electrode.Position;
        values.push_back(10 + 5 * std::sin(phase + 3 * at.x) * std::cos(2 * at.y - phase) + at.z);
    }
    return values;
}

/// A step of a cartoon. Arguments: electrodes, on heads or flat.
void NewValuesOfSixteenMaps(benchmark::State& state) {
    const std::vector<ElectInfo> electrodes = Electrodes(state.range(0));
    const auto windows = Windows(kMaps, kSide, electrodes, state.range(1) != 0);
    double phase = 0;
    orvanta::MeasureRounds(state, [&] {
        for (const auto& window : windows) {
            phase += 0.1;
            window->SetValues(Values(electrodes, phase), "Time: 12.5 sec.", true);
            window->UpdateWindow();
        }
    });
}
BENCHMARK(NewValuesOfSixteenMaps)
    ->ArgNames({"electrodes", "3d"})
    ->ArgsProduct({{64, 128}, {0, 1}})
    ->MeasureProcessCPUTime()
    ->Unit(benchmark::kMillisecond);

/// Argument: electrodes.
void TurningAWindow(benchmark::State& state) {
    const std::vector<ElectInfo> electrodes = Electrodes(state.range(0));
    const auto windows = Windows(1, kHeadSide, electrodes, true);
    TMapWindow& window = *windows.front();
    window.SetValues(Values(electrodes, 0), "Alpha", true);
    const auto drag = [&window](owl::WindowEvent kind, unsigned keys, const owl::TPoint& at) {
        window.Dispatch({{owl::EventKind::Window, static_cast<unsigned>(kind)}, owl::MouseArgs{keys, at}});
    };
    drag(owl::WindowEvent::LButtonDown, owl::kMkLButton, {0, 200});
    int x = 0;
    orvanta::MeasureRounds(state, [&] {
        x += 7;
        drag(owl::WindowEvent::MouseMove, owl::kMkLButton, {x, 200});
        window.UpdateWindow();
    });
}
BENCHMARK(TurningAWindow)
    ->ArgName("electrodes")
    ->Arg(64)
    ->Arg(128)
    ->MeasureProcessCPUTime()
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[]) {
    return orvanta::RunWindowBenchmarks(argc, argv);
}
