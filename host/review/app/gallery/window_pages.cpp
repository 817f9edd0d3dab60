// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/gallery/window_pages.h"

#include "host/review/app/main_window/analysis_runner.h"
#include "host/review/app/main_window/document.h"
#include "host/review/app/main_window/documents.h"
#include "host/review/app/main_window/main_window.h"
#include "host/review/app/main_window/settling.h"
#include "host/review/app/main_window/shell.h"
#include "host/review/app/main_window/workbench.h"
#include "host/signal_base/recording.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_macro.h"
#include "spectra_contract/spectra_mgr.h"

#include <memory>

namespace orvanta::review {

namespace {

constexpr QSize kWide(1280, 720);

SpectMacroResult& AddAnalysis(Document& document, const std::string& file) {
    SpectraMacro macro;
    macro.Load(file);
    auto analysis = std::make_unique<SpectMacroResult>(macro, &document.Recording(), nullptr);
    document.Analyses().push_back(analysis.get());
    return *analysis.release(); // the manager's from here on
}

/// The demo with both conditions compared.
void ShowAnalyses(const GallerySample& sample, ModuleBridge* bridge, const TakePicture& take) {
    const std::string macros = sample.platform.GetAppFolder("MACRO");
    Workbench bench({.settingsFile = {},
                     .dataFolder = macros.substr(0, macros.size() - std::string("MACRO/").size()),
                     .bridge = bridge,
                     .moduleProblem = {}});
    bench.Start(sample.recording.GetRecording()->Data().path);
    bench.Window().resize(kWide);
    SpectMacroResult& main = AddAnalysis(*bench.GetDocuments().Current(), macros + "Eyes closed.smx");
    SpectMacroResult& secondary = AddAnalysis(*bench.GetDocuments().Current(), macros + "Eyes open.smx");
    bench.GetDocuments().Current()->Analyses().SetMain(&main);
    bench.GetDocuments().Current()->Analyses().SetSecondary(&secondary);
    bench.GetAnalyses().Recompute();
    LetItSettle([&bench] { return bench.IsSettled(); });
    constexpr double kFirstClosed = 30; // seconds
    bench.Middle().PointAtTime(XTime::FromSeconds(kFirstClosed));
    LetItSettle([&bench] { return bench.IsSettled(); });
    take(bench.Window());
}

void ShowWelcome(const GallerySample& /*sample*/, ModuleBridge* bridge, const TakePicture& take) {
    Workbench bench({.settingsFile = {}, .dataFolder = {}, .bridge = bridge, .moduleProblem = {}});
    bench.Start({});
    bench.Window().resize(kWide / 2);
    take(bench.Window());
}

/// A program whose module is missing.
void ShowTracesAlone(const GallerySample& sample, ModuleBridge* /*bridge*/, const TakePicture& take) {
    Workbench bench({.settingsFile = {},
                     .dataFolder = {},
                     .bridge = nullptr,
                     .moduleProblem = "/usr/lib/orvanta/Orvanta64.so: does not exist (install program and "
                                      "module of the same release together)"});
    bench.Start(sample.recording.GetRecording()->Data().path);
    constexpr QSize kSmall(900, 420);
    bench.Window().resize(kSmall);
    LetItSettle([&bench] { return bench.IsSettled(); });
    take(bench.Window());
}

} // namespace

std::vector<GalleryPage> MakeWindowPages(const GallerySample& sample, ModuleBridge* bridge) {
    const auto page = [&sample, bridge](const char* name, auto show) {
        return GalleryPage{name,
                           [sample, bridge, show](const TakePicture& take) { show(sample, bridge, take); }};
    };
    return {page("main-window-welcome", ShowWelcome), page("main-window", ShowAnalyses),
            page("main-window-traces-alone", ShowTracesAlone)};
}

} // namespace orvanta::review
