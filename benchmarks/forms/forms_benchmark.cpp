// SPDX-License-Identifier: GPL-3.0-or-later
// Opening the two macro forms, from nothing until they are painted, after the first time; closing counts too.
#include "benchmarks/window_benchmarks.h"
#include "host/platform/console_gui.h"
#include "host/platform/host_platform.h"
#include "side_bar/macro_selection_form.h"
#include "side_bar/spectrum_macro_form.h"
#include "spectra_contract/events.h"
#include "spectra_contract/spectra_macro.h"

#include <QTemporaryDir>

#include <iostream>
#include <string>

namespace {

/// Adds so many kinds of state events and of spot events, ten of each kind.
void AddEvents(EventsManager& events, std::int64_t kinds) {
    for (std::int64_t event = 0; event < 10 * kinds; ++event) {
        const std::string label = "kind " + std::to_string(event % kinds);
        const XTime begin = XTime::FromSeconds(static_cast<double>(event));
        events.Add({label, EventClass::State, {begin, XTime::FromSeconds(static_cast<double>(event + 1))}});
        events.Add({label, EventClass::Spot, {begin, begin}});
    }
}

void ShowOnce(QWidget& form) {
    form.show();
    form.grab();
    QApplication::processEvents();
}

/// Argument: kinds of state events and of spot events.
void OpenSettings(benchmark::State& state) {
    EventsManager events(256);
    AddEvents(events, state.range(0));
    SpectraMacro macro;
    orvanta::MeasureRounds(state, [&] {
        TFormSpectrumMacro form(nullptr, "", &macro, &events, {}, 2);
        ShowOnce(form);
    });
}
BENCHMARK(OpenSettings)->Arg(10)->Arg(200)->Arg(10000)->Unit(benchmark::kMillisecond);

/// Argument: macros in the library.
void OpenLibrary(benchmark::State& state) {
    const QTemporaryDir folder;
    const orvanta::platform::ConsoleGui gui(std::cerr, {});
    const orvanta::platform::HostPlatform platform(gui, folder.filePath("settings.ini").toStdString(),
                                                   folder.path().toStdString());
    SpectraMacro macro;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        macro.SaveAs(platform.GetAppFolder("MACRO") + "Macro " + std::to_string(i) + ".smx");
    }
    EventsManager events(256);
    AddEvents(events, 10);
    orvanta::MeasureRounds(state, [&] {
        TFormMacroSpectra form(nullptr, nullptr, &macro, &events, {}, 1, &platform);
        ShowOnce(form);
    });
}
BENCHMARK(OpenLibrary)->Arg(10)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[]) {
    return orvanta::RunWindowBenchmarks(argc, argv);
}
