// SPDX-License-Identifier: GPL-3.0-or-later
// One step of a cartoon of sixteen maps: values, fields, contours, pixels of the window.
#include "benchmarks/window_benchmarks.h"
#include "tests/host/chart_view/maps/maps_view.h"

#include <QSplitter>

#include <cmath>

namespace {

using orvanta::test::Epochs;
using orvanta::test::FakeGlobalWindow;
using orvanta::test::MapsView;

constexpr std::uint32_t kEpochs = 1000;

/// A hill that goes around the head.
double Hill(const ElectInfo& electrode, std::uint64_t epoch) {
    const double turn = 0.2 * static_cast<double>(epoch);
    return 4 + 6 * std::exp(-3 * (std::pow(electrode.Position.x - 0.6 * std::sin(turn), 2) +
                                  std::pow(electrode.Position.y - 0.6 * std::cos(turn), 2)));
}

/// Arguments: electrodes, heads instead of flat maps, width and height of the view.
void StepOfSixteenMaps(benchmark::State& state) {
    FakeGlobalWindow window;
    window.platform.user.values = {{"Maps/MapRows", 4}, {"Maps/MapColumns", 4}};
    MapsView view(window, state.range(1) != 0, static_cast<std::size_t>(state.range(0)));
    view.valueOf = [&](std::uint64_t epoch, std::size_t, std::size_t electrode) {
        return Hill(view.GetElectrodes()[electrode], epoch);
    };
    view.source.epochs = Epochs(kEpochs);
    view.source.range = orvanta::chart::ValueRange{4, 10};
    view.inCartoon = true;
    view.ShowAt(static_cast<int>(state.range(2)), static_cast<int>(state.range(3)));
    view.EnableCartoon(true);
    view.SetSinglePalette(true);
    view.SetMapValues(true);
    view.Play();
    QApplication::processEvents();
    std::uint64_t step = 0;
    orvanta::MeasureRounds(state, [&] {
        step = (step + 1) % (kEpochs - view.GetNumMaps());
        view.ShowStep(step);
        QApplication::processEvents();
        view.updates.clear();
    });
}
BENCHMARK(StepOfSixteenMaps)
    ->ArgNames({"electrodes", "heads", "width", "height"})
    ->Args({64, 0, 1300, 660})
    ->Args({128, 0, 1300, 660})
    ->Args({64, 0, 1900, 1000})
    ->Args({64, 1, 1300, 660})
    ->Args({64, 1, 1900, 1000})
    ->MeasureProcessCPUTime() // of all threads
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[]) {
    return orvanta::RunWindowBenchmarks(argc, argv);
}
