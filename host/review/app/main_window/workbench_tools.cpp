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

std::string Workbench::UndoText() const {
    return Current() != nullptr ? Current()->Events().UndoText() : std::string();
}

std::string Workbench::RedoText() const {
    return Current() != nullptr ? Current()->Events().RedoText() : std::string();
}

void Workbench::Undo() {
    if (Current() != nullptr && Current()->Events().CanUndo()) {
        Current()->Events().Undo();
    }
}

void Workbench::Redo() {
    if (Current() != nullptr && Current()->Events().CanRedo()) {
        Current()->Events().Redo();
    }
}

bool Workbench::HasChangedEvents() const {
    return Current() != nullptr && Current()->Events().IsChanged();
}

void Workbench::SaveEvents() {
    if (Current() != nullptr) {
        review::SaveEvents(HWND(shell_.get()), Current()->Events());
    }
}

void Workbench::SaveEventsAs() {
    if (Current() != nullptr) {
        review::SaveEventsAs(HWND(shell_.get()), Current()->Events());
    }
}

void Workbench::OpenEvents() {
    if (Current() != nullptr && !gui_.IsBusy()) {
        review::OpenEvents(HWND(shell_.get()), Current()->Events());
    }
}

std::vector<std::string> Workbench::MontageNames() const {
    std::vector<std::string> names;
    if (Current() != nullptr) {
        for (const auto& montage : *Current()->Recording().GetMontageList()) {
            names.push_back(montage->GetName());
        }
    }
    return names;
}

std::size_t Workbench::CurrentMontage() const {
    return Current() != nullptr ? Current()->Recording().GetMontageList()->GetCurrentIndex() : 0;
}

void Workbench::ChooseMontage(std::size_t index) {
    if (Current() != nullptr && !gui_.IsBusy()) {
        Current()->Recording().ChangeMntg(index, true); // which is told
    }
}

void Workbench::EditMontages() {
    if (!gui_.IsBusy()) {
        review::EditMontages(HWND(shell_.get()), platform_.GetAppFolder(kMontageFolder),
                             Current() != nullptr ? &Current()->Recording() : nullptr);
    }
}

void Workbench::ChooseAverageElectrodes() {
    if (CanAnalyse() && !gui_.IsBusy()) {
        review::ChooseAverageElectrodes(HWND(middle_), *setup_.bridge, Current()->Recording(), platform_);
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
    if (Current() != nullptr) {
        events = Current()->Recording().GetEventsManager();
        Current()->Recording().GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily,
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
