// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/spectrum.h"

#include "host/toolkit/services.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/command_ids.h"
#include "spectrum_view/menu_texts.h"
#include "spectrum_view/state/status_texts.h"
#include "spectrum_view/state/stored_state.h"

#include <array>

using namespace orvanta::spectrum_view;

namespace {

constexpr unsigned kMenu = 8320;

bool HasEegSensors(const EEGFileInfoType& recording) {
    SensorList sensors;
    recording.GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily, Sensor::Class::Eeg);
    return !sensors.empty();
}

/// True when the statistics program of the settings can be read.
bool HasStatisticsProgram(const GenericPlatform& platform) {
    constexpr int kMostCharacters = 259;
    std::array<char, kMostCharacters + 1> program{};
    platform.ReadString(kSection, "Tabulix", R"(c:\quorvex\quorvex.exe)", program.data(), kMostCharacters);
    return owl::CurrentServices().files->Access(program.data(), owl::FileAccess::kReadable) == 0;
}

} // namespace

constinit const owl::TResponseTable Spectrum::__entries = {
    owl::Command<&Spectrum::CmMean>(kCmMean),
    owl::Command<&Spectrum::CmTimeFreq>(kCmTimeFreq),
    owl::Command<&Spectrum::CmCSA>(kCmCsa),
    owl::Command<&Spectrum::CmHeadView>(kCmHeadView),
    owl::Command<&Spectrum::CmGridView>(kCmGridView),
    owl::Command<&Spectrum::CmRecompute>(kCmRecompute),
    owl::Command<&Spectrum::CmSetCommon>(kCmSetCommon),
    owl::Command<&Spectrum::CmShowPoints>(kCmShowPoints),
    owl::Command<&Spectrum::CmShowLines>(kCmShowLines),
    owl::Command<&Spectrum::CmShowSD>(kCmShowSd),
    owl::Command<&Spectrum::CmShowLabel>(kCmShowLabels),
    owl::Command<&Spectrum::CmShowAxesText>(kCmShowAxesText),
    owl::Command<&Spectrum::CmShowMeasures>(kCmShowMeasures),
    owl::Command<&Spectrum::CmSetEntity>(kCmSetEntity, kCmLastEntity),
    owl::On<owl::WindowEvent::Size, &Spectrum::EvSize>(),
    owl::On<owl::WindowEvent::SetFocus, &Spectrum::EvSetFocus>(),
};

const owl::TResponseEntry* Spectrum::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<TheChild>(__entries, *this, key);
}

Spectrum::Spectrum(GlobalWindow& window, EEGFileInfoType* recording, SpectraMgr* manager, bool flag)
    : TheChild(window, kSection, PModule::Named("Orvanta"), {kCmView, 0, kMenu, 0, 0}), recording_(recording),
      manager_(manager), flag_(flag),
      state_(OpenState(*window.GetUser(), *manager, LoadedRate(), Display())) {
    SetCephalicList();
}

Spectrum::~Spectrum() = default;

double Spectrum::LoadedRate() const {
    return recording_->GetTraceCursor()->GetMemDataSR();
}

void Spectrum::SetupWindow() {
    TheChild::SetupWindow();
    owl::TMenu& menu = *GW().GetMenu();
    TranslateMenu(menu, GetMessages());
    if (!HasEegSensors(*recording_)) {
        menu.EnableMenuItem(kCmHeadView, false);
    }
    for (unsigned i = 0; i < manager_->GetMeasEntityCount(); ++i) {
        menu.AppendItem(kCmSetEntity + i, manager_->GetMeasEntityStr(static_cast<SPECT::Entity::Type>(i)));
    }
    CheckEntityItems();
    if (state_.commonScale) {
        CheckMenu(kCmSetCommon, true);
    }
    UpdateStatusBar();
    if (!HasStatisticsProgram(*GW().GetPlatform())) {
        menu.EnableMenuItem(kCmSaveAndLaunch, false);
    }
}

void Spectrum::Destroy(int retVal) {
    if (IsCreated()) {
        SaveState(*GW().GetUser(), *manager_, state_, Display());
    }
    TheChild::Destroy(retVal);
}

void Spectrum::UpdateStatusBar() {}

void Spectrum::DrawStatusBar() const {
    SetMessageBar(TimeIntervalText(*manager_, GetMessages()));
}

void Spectrum::EvSetFocus(HWND lost) {
    TheChild::EvSetFocus(lost);
    DrawStatusBar();
}
