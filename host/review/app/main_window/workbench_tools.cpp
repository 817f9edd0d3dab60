// SPDX-License-Identifier: GPL-3.0-or-later
// What the menus of analyses, montages, tools and help do.
#include "host/review/app/events/event_editor.h"
#include "host/review/app/macro_labels.h"
#include "host/review/app/main_window/document.h"
#include "host/review/app/main_window/event_saving.h"
#include "host/review/app/main_window/help.h"
#include "host/review/app/main_window/host_text.h"
#include "host/review/app/main_window/language.h"
#include "host/review/app/main_window/main_window.h"
#include "host/review/app/main_window/menus.h"
#include "host/review/app/main_window/shell.h"
#include "host/review/app/main_window/workbench.h"
#include "host/review/app/module_bridge.h"
#include "host/review/app/montage/average_electrodes.h"
#include "host/review/app/montage/montage_editor.h"
#include "host/toolkit/modal_gateway.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"

#include <algorithm>

namespace orvanta::review {

bool Workbench::CanAnalyse() const {
    return document_ != nullptr && setup_.bridge != nullptr;
}

void Workbench::NewAnalysis() {
    if (!CanAnalyse() || gui_.IsBusy()) {
        return;
    }
    constexpr std::int32_t kAppended = 1;
    SpectraMgr& manager = document_->Analyses();
    const HWND window(shell_.get());
    try {
        if (setup_.bridge->CreateNewSpectrum(platform_, window, manager, document_->Recording()) !=
            kAppended) {
            return;
        }
        SpectMacroResult* added = *(manager.end() - 1);
        setup_.bridge->PerformComputation(platform_, window, *added, document_->Recording());
        manager.SetMain(added);
    } catch (const std::exception& error) {
        gui_.ShowError(error.what());
    }
    if (manager.GetMain() == nullptr) {
        return;
    }
    OpenWantedViews();
    if (std::ranges::none_of(kAnalysisViews, [this](ViewKind kind) { return IsShown(kind); })) {
        Show(ViewKind::Spectrum, true);
    }
    views_->Refresh(kAnalysisViews);
    views_->FocusAnalysis();
    ShowState();
}

void Workbench::Recompute() {
    if (CanAnalyse() && !gui_.IsBusy()) {
        if (SpectMacroResult* main = document_->Analyses().GetMain()) {
            main->ResetData();
            OpenWantedViews();
        }
        views_->Refresh(kAnalysisViews);
        ShowState();
    }
}

std::string Workbench::UndoText() const {
    return document_ != nullptr ? document_->Events().UndoText() : std::string();
}

std::string Workbench::RedoText() const {
    return document_ != nullptr ? document_->Events().RedoText() : std::string();
}

void Workbench::Undo() {
    if (document_ != nullptr && document_->Events().CanUndo()) {
        document_->Events().Undo();
    }
}

void Workbench::Redo() {
    if (document_ != nullptr && document_->Events().CanRedo()) {
        document_->Events().Redo();
    }
}

bool Workbench::HasChangedEvents() const {
    return document_ != nullptr && document_->Events().IsChanged();
}

void Workbench::SaveEvents() {
    if (document_ != nullptr) {
        review::SaveEvents(HWND(shell_.get()), document_->Events());
    }
}

void Workbench::SaveEventsAs() {
    if (document_ != nullptr) {
        review::SaveEventsAs(HWND(shell_.get()), document_->Events());
    }
}

void Workbench::OpenEvents() {
    if (document_ != nullptr && !gui_.IsBusy()) {
        review::OpenEvents(HWND(shell_.get()), document_->Events());
    }
}

std::vector<std::string> Workbench::MontageNames() const {
    std::vector<std::string> names;
    if (document_ != nullptr) {
        for (const auto& montage : *document_->Recording().GetMontageList()) {
            names.push_back(montage->GetName());
        }
    }
    return names;
}

std::size_t Workbench::CurrentMontage() const {
    return document_ != nullptr ? document_->Recording().GetMontageList()->GetCurrentIndex() : 0;
}

void Workbench::ChooseMontage(std::size_t index) {
    if (document_ != nullptr && !gui_.IsBusy()) {
        document_->Recording().ChangeMntg(index, true); // which is told
    }
}

std::vector<std::string> Workbench::OfferMontages() {
    EEGFileInfoType& recording = document_->Recording();
    const MontageFiles montages = LoadMontageFiles(platform_.GetAppFolder(kMontageFolder));
    RestoreAverageElectrodes(recording, platform_);
    std::vector<std::string> remarks = document_->Repairs();
    for (const auto& more : {montages.problems, review::OfferMontages(recording, montages.files)}) {
        remarks.insert(remarks.end(), more.begin(), more.end());
    }
    if (std::string average = AverageRemark(recording); !average.empty()) {
        remarks.push_back(std::move(average));
    }
    return remarks;
}

void Workbench::EditMontages() {
    if (!gui_.IsBusy()) {
        review::EditMontages(HWND(shell_.get()), platform_.GetAppFolder(kMontageFolder),
                             document_ != nullptr ? &document_->Recording() : nullptr);
    }
}

void Workbench::ChooseAverageElectrodes() {
    if (CanAnalyse() && !gui_.IsBusy()) {
        review::ChooseAverageElectrodes(HWND(middle_), *setup_.bridge, document_->Recording(), platform_);
    }
}

void Workbench::EditMacros() {
    if (setup_.bridge == nullptr) {
        return;
    }
    constexpr int kModeEdit = 2;
    EventsManager ownEvents;
    EventsManager* events = &ownEvents;
    SensorList sensors;
    if (document_ != nullptr) {
        events = document_->Recording().GetEventsManager();
        document_->Recording().GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily,
                                                                    Sensor::Class::Eeg);
    } else {
        AddLabelsOf(MacrosIn(platform_.GetAppFolder("MACRO")), ownEvents);
    }
    SpectraMacro macro;
    setup_.bridge->SelectMacro(HWND(shell_.get()), macro, events, sensors, kModeEdit, platform_);
}

std::vector<std::string> Workbench::Languages() const {
    return TextLanguages();
}

std::string Workbench::Language() const {
    return StoredLanguage(platform_);
}

void Workbench::ChooseLanguage(const std::string& language) {
    if (language != Language()) {
        StoreLanguage(platform_, language);
        owl::CurrentModalGateway().ShowMessage(
            HWND(shell_.get()),
            HostText("languageNext", "The texts are in this language from the next start of Orvanta on."),
            HostText("languageTitle", "Language"), owl::kMbOk);
    }
}

void Workbench::ShowManual() {
    review::ShowManual(*shell_);
}

void Workbench::ShowLog() {
    review::ShowLog(*shell_);
}

void Workbench::ShowAbout() {
    review::ShowAbout(*shell_);
}

} // namespace orvanta::review
