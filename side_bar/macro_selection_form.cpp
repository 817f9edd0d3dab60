// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/macro_selection_form.h"

#include "spectra_contract/platform.h"

#include <algorithm>
#include <cstdio>
#include <utility>

TFormMacroSpectra::TFormMacroSpectra(QWidget* owner, HWND parent, SpectraMacro* macro, EventsManager* events,
                                     const SensorList& sensors, int mode, const GenericPlatform* platform)
    : parent_(parent ? parent : HWND(owner)), macro_(macro), events_(events), sensors_(sensors),
      openedAsNew_(mode == 1), active_(mode != 0) {
    const std::string folder = platform != nullptr ? platform->GetAppFolder("MACRO") : std::string();
    std::snprintf(searchMask_.data(), searchMask_.size(), "%s*%s", folder.c_str(), kExtension);
    std::snprintf(macroFolder_.data(), macroFolder_.size(), "%s", folder.c_str());
}

int TFormMacroSpectra::ShowModal() {
    return owl::CurrentModalGateway().RunModal(*this);
}

bool TFormMacroSpectra::Click(std::string_view control) {
    using Handler = void (TFormMacroSpectra::*)();
    static constexpr std::pair<std::string_view, Handler> kHandlers[] = {
        {"BtnAutoAverage", &TFormMacroSpectra::BtnAutoAverageClick},
        {"BtnManualAverage", &TFormMacroSpectra::BtnManualAverageClick},
        {"BtnCancel", &TFormMacroSpectra::BtnCancelClick},
    };
    const auto* found = std::find_if(std::begin(kHandlers), std::end(kHandlers),
                                     [control](const auto& handler) { return handler.first == control; });
    if (found == std::end(kHandlers)) {
        return false;
    }
    (this->*found->second)();
    return true;
}

void TFormMacroSpectra::BtnAutoAverageClick() {
    result_ = 1;
}

void TFormMacroSpectra::BtnManualAverageClick() {
    result_ = 2;
}

void TFormMacroSpectra::BtnCancelClick() {
    result_ = 0;
    active_ = false;
}
