// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/analysis_runner.h"

#include "host/review/app/main_window/document.h"
#include "host/review/app/main_window/documents.h"
#include "host/review/app/main_window/open_views.h"
#include "host/review/app/main_window/text_setting.h"
#include "host/review/app/main_window/work_gui.h"
#include "host/review/app/module_bridge.h"
#include "host/toolkit/window_handle.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"

#include <algorithm>
#include <utility>

namespace orvanta::review {

namespace {

constexpr const char* kStatMode = "StatMode";
constexpr int kRegression = 2;

} // namespace

AnalysisRunner::AnalysisRunner(const Around& around, std::function<void()> shown)
    : around_(around), shown_(std::move(shown)) {}

bool AnalysisRunner::CanAnalyse() const {
    return around_.documents.Current() != nullptr && around_.bridge != nullptr;
}

void AnalysisRunner::New() {
    if (!CanAnalyse() || around_.gui.IsBusy()) {
        return;
    }
    constexpr std::int32_t kAppended = 1;
    const Document& document = *around_.documents.Current();
    SpectraMgr& manager = document.Analyses();
    const HWND window(&around_.window);
    try {
        if (around_.bridge->CreateNewSpectrum(around_.platform, window, manager, document.Recording()) !=
            kAppended) {
            return;
        }
        SpectMacroResult* added = *(manager.end() - 1);
        around_.bridge->PerformComputation(around_.platform, window, *added, document.Recording());
        manager.SetMain(added);
    } catch (const std::exception& error) {
        around_.gui.ShowError(error.what());
    }
    if (manager.GetMain() == nullptr) {
        return;
    }
    OpenViews& views = around_.views;
    views.OpenWanted();
    if (std::ranges::none_of(kAnalysisViews, [&](ViewKind kind) { return views.IsShown(kind); })) {
        Show(ViewKind::Spectrum);
    }
    views.Refresh(kAnalysisViews);
    views.FocusAnalysis();
    shown_();
}

void AnalysisRunner::Recompute() {
    if (CanAnalyse() && !around_.gui.IsBusy()) {
        if (SpectMacroResult* main = around_.documents.Current()->Analyses().GetMain()) {
            main->ResetData();
            around_.views.OpenWanted();
        }
        around_.views.Refresh(kAnalysisViews);
        shown_();
    }
}

void AnalysisRunner::MakeFirst(const SpectraMacro& macro) {
    if (!CanAnalyse()) {
        return;
    }
    const Document& document = *around_.documents.Current();
    if (SpectraMgr& analyses = document.Analyses(); analyses.Size() == 0) {
        analyses.push_back(new SpectMacroResult(macro, &document.Recording(), &around_.gui));
        analyses.SetMain(*analyses.begin());
    }
}

bool AnalysisRunner::HasSelections() const {
    const SpectMacroResult* main = CanAnalyse() ? around_.documents.Current()->Analyses().GetMain() : nullptr;
    return main != nullptr &&
           main->GetMacro().GetTimeIntervalSelectMode() == SpectraMacro::TimeIntervalSelectMode::ByDuration;
}

bool AnalysisRunner::GoToNextSelection() {
    const Document& document = *around_.documents.Current();
    TraceCursorType& cursor = *document.Recording().GetTraceCursor();
    const XTime* start = document.Analyses().GetMain()->GetNextSelectionStart(cursor.GetStartRecTime());
    if (start == nullptr) {
        return false;
    }
    cursor.SetPosition(cursor.GetSample(start, Sample::Mode::Memory, 0));
    Recompute();
    return true;
}

void AnalysisRunner::Show(ViewKind kind) {
    around_.gui.WhenIdle([this, kind] {
        if (around_.views.CanShow(kind)) {
            Document& document = *around_.documents.Current();
            if (IsMaps(kind)) {
                document.SetMapsOnHeads(kind == ViewKind::Heads);
            }
            if (kind != ViewKind::Traces && document.Analyses().GetMain() == nullptr) {
                New();
            }
            if (kind == ViewKind::Traces || document.Analyses().GetMain() != nullptr) {
                around_.views.Open(kind);
                around_.views.Refresh(std::span(&kind, 1));
                around_.views.Activate(kind);
            }
        }
        around_.views.Want(kind, true);
    });
}

bool AnalysisRunner::UsesRegression() const {
    return around_.platform.GetUser()->GetInt(kHostSection, kStatMode, 0) == kRegression;
}

void AnalysisRunner::UseRegression(bool use) {
    around_.platform.GetUser()->PutInt(kHostSection, kStatMode, use ? kRegression : 0);
    around_.gui.WhenIdle([this] {
        if (around_.documents.Current() != nullptr) {
            ApplyRegression();
            around_.views.Reopen(ViewKind::Spectrum); // it looks at it when it makes its side bar
        }
    });
}

void AnalysisRunner::ApplyRegression() {
    around_.documents.Current()->Analyses().SetStatMode(
        around_.platform.GetUser()->GetInt(kHostSection, kStatMode, 0));
}

} // namespace orvanta::review
