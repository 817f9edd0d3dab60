// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/spectrum.h"

#include "host/toolkit/form_texts.h"
#include "side_bar/measure_names.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/command_ids.h"
#include "spectrum_view/menu_texts.h"
#include "spectrum_view/saving/statistics_launch.h"
#include "spectrum_view/state/status_texts.h"
#include "spectrum_view/state/stored_state.h"

#include <QLabel>

using namespace orvanta::spectrum_view;

namespace {

constexpr unsigned kMenu = 8320;

bool HasEegSensors(const EEGFileInfoType& recording) {
    SensorList sensors;
    recording.GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily, Sensor::Class::Eeg);
    return !sensors.empty();
}

} // namespace

constinit const owl::TResponseTable Spectrum::__entries = {
    owl::Command<&Spectrum::CmMean>(kCmMean),
    owl::Command<&Spectrum::CmTimeFreq>(kCmTimeFreq),
    owl::Command<&Spectrum::CmCSA>(kCmCsa),
    owl::Command<&Spectrum::CmHeadView>(kCmHeadView),
    owl::Command<&Spectrum::CmGridView>(kCmGridView),
    owl::Command<&Spectrum::CmMeasures>(kCmMeasures),
    owl::Command<&Spectrum::CmRecompute>(kCmRecompute),
    owl::Command<&Spectrum::CmEditOptions>(kCmEditOptions),
    owl::Command<&Spectrum::CmSetBands>(kCmSetBands),
    owl::Command<&Spectrum::CmSetCommon>(kCmSetCommon),
    owl::Command<&Spectrum::CmCopy2ClpBrd>(kCmCopyMeasures),
    owl::Command<&Spectrum::CmPreviousTrace>(kCmPreviousTrace),
    owl::Command<&Spectrum::CmNextTrace>(kCmNextTrace),
    owl::Command<&Spectrum::CmNextSelection>(kCmNextSelection),
    owl::Command<&Spectrum::CmSaveSpectra>(kCmSaveSpectra),
    owl::Command<&Spectrum::CmSaveSpectraAndLaunchStat>(kCmSaveAndLaunch),
    owl::Command<&Spectrum::CmWide>(kCmWide),
    owl::Command<&Spectrum::CmNarrow>(kCmNarrow),
    owl::Command<&Spectrum::CmSpectraTable>(kCmSpectraTable),
    owl::Command<&Spectrum::CmSelectFont>(kCmSelectFont),
    owl::Command<&Spectrum::CmSetMaxAxis>(kCmSetMaxAxis),
    owl::Command<&Spectrum::CmSpectraInfo>(kCmSpectraInfo),
    owl::Command<&Spectrum::CmShowPoints>(kCmShowPoints),
    owl::Command<&Spectrum::CmShowLines>(kCmShowLines),
    owl::Command<&Spectrum::CmShowSD>(kCmShowSd),
    owl::Command<&Spectrum::CmShowLabel>(kCmShowLabels),
    owl::Command<&Spectrum::CmShowAxesText>(kCmShowAxesText),
    owl::Command<&Spectrum::CmShowMeasures>(kCmShowMeasures),
    owl::Command<&Spectrum::CmNormalizeNone>(kCmNormalizeNone),
    owl::Command<&Spectrum::CmNormalizeByF>(kCmNormalizeByF),
    owl::Command<&Spectrum::CmNormalizeBySqrtF>(kCmNormalizeBySqrtF),
    owl::Command<&Spectrum::CmNormalizeByLnF>(kCmNormalizeByLnF),
    owl::Command<&Spectrum::CmNormalizeByLog10F>(kCmNormalizeByLog10F),
    owl::Command<&Spectrum::CmNormalizeDb>(kCmNormalizeDb),
    owl::Command<&Spectrum::CmSetEntity>(kCmSetEntity, kCmLastEntity),
    owl::CommandEnabler<&Spectrum::CeCommonScale>(kCmSetCommon),
    owl::CommandEnabler<&Spectrum::CeNextTrace>(kCmNextTrace),
    owl::CommandEnabler<&Spectrum::CePreviousTrace>(kCmPreviousTrace),
    owl::CommandEnabler<&Spectrum::CeNextSelection>(kCmNextSelection),
    owl::CommandEnabler<&Spectrum::CeWide>(kCmWide),
    owl::CommandEnabler<&Spectrum::CeNarrow>(kCmNarrow),
    owl::CommandEnabler<&Spectrum::CeFullOpt>(kCmEditOptions),
    owl::CommandEnabler<&Spectrum::CeMean>(kCmMean),
    owl::CommandEnabler<&Spectrum::CeTimeFreq>(kCmTimeFreq),
    owl::CommandEnabler<&Spectrum::CeCSA>(kCmCsa),
    owl::CommandEnabler<&Spectrum::CeGridView>(kCmGridView),
    owl::CommandEnabler<&Spectrum::CeHeadView>(kCmHeadView),
    owl::CommandEnabler<&Spectrum::CeTable>(kCmSpectraTable),
    owl::CommandEnabler<&Spectrum::CeShowPoints>(kCmShowPoints),
    owl::CommandEnabler<&Spectrum::CeShowLines>(kCmShowLines),
    owl::CommandEnabler<&Spectrum::CeShowSD>(kCmShowSd),
    owl::CommandEnabler<&Spectrum::CeShowMeasures>(kCmShowMeasures),
    owl::CommandEnabler<&Spectrum::CeShowAxesText>(kCmShowAxesText),
    owl::CommandEnabler<&Spectrum::CeShowLabel>(kCmShowLabels),
    owl::CommandEnabler<&Spectrum::CeNormalizeNone>(kCmNormalizeNone),
    owl::CommandEnabler<&Spectrum::CeNormalizeDb>(kCmNormalizeDb),
    owl::CommandEnabler<&Spectrum::CeNormalizeByF>(kCmNormalizeByF),
    owl::CommandEnabler<&Spectrum::CeNormalizeBySqrtF>(kCmNormalizeBySqrtF),
    owl::CommandEnabler<&Spectrum::CeNormalizeByLog10F>(kCmNormalizeByLog10F),
    owl::CommandEnabler<&Spectrum::CeNormalizeByLnF>(kCmNormalizeByLnF),
    owl::CommandEnabler<&Spectrum::CeSetEntity>(kCmSetEntity, kCmLastEntity),
    owl::On<owl::WindowEvent::Size, &Spectrum::EvSize>(),
    owl::On<owl::WindowEvent::SetFocus, &Spectrum::EvSetFocus>(),
    owl::On<owl::WindowEvent::KillFocus, &Spectrum::EvKillFocus>(),
    owl::On<owl::WindowEvent::KeyDown, &Spectrum::EvKeyDown>(),
    owl::On<owl::WindowEvent::LButtonDown, &Spectrum::EvLButtonDown>(),
    owl::On<owl::WindowEvent::LButtonUp, &Spectrum::EvLButtonUp>(),
    owl::On<owl::WindowEvent::LButtonDblClk, &Spectrum::EvLButtonDblClk>(),
    owl::On<owl::WindowEvent::MouseWheel, &Spectrum::EvMouseWheel>(),
    owl::Message<&Spectrum::EvCbMontage>(kMontageSelector),
    owl::Message<&Spectrum::EvTable>(kGridPicked),
};

const owl::TResponseEntry* Spectrum::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<TheChild>(__entries, *this, key);
}

Spectrum::Spectrum(GlobalWindow& window, EEGFileInfoType* recording, SpectraMgr* manager, bool flag)
    : TheChild(window, kSection, PModule::Named("Orvanta"), {kCmView, 0, kMenu, 0, 0}), recording_(recording),
      manager_(manager), flag_(flag),
      state_(OpenState(*window.GetUser(), *manager, LoadedRate(), Display())) {
    SetCephalicList();
    setAccessibleName(QString::fromStdString(owl::TextOr(GetMessages(), kSection, "View", "Spectra")));
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
        menu.AppendItem(kCmSetEntity + i,
                        orvanta::side_bar::EntityName(*manager_, static_cast<SPECT::Entity::Type>(i)));
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

void Spectrum::StoreUserSettings() const {
    TheChild::StoreUserSettings();
    SaveState(*GW().GetUser(), *manager_, state_, Display());
}

void Spectrum::Destroy(int retVal) {
    if (IsCreated()) {
        StoreUserSettings();
        TakePanelsBack(); // a view that ends is not told that the focus leaves it
        RemoveSideBar();
    }
    TheChild::Destroy(retVal);
}

void Spectrum::CreateGadgets() {
    TheChild::CreateGadgets();
    owl::GadgetBar& bar = GetToolBar();
    const auto add = [&](unsigned command, unsigned icon, const char* key, const char* tip) {
        bar.AddButton(command, icon, owl::TextOr(GetMessages(), "MENU", key, tip));
    };
    add(kCmPreviousTrace, 2064, "CM_SPE_PREVIOUS.tip", "Previous traces");
    add(kCmNextTrace, 2065, "CM_SPE_NEXT.tip", "Next traces");
    bar.AddGap();
    montages_ = bar.AddComboBox(
        kMontageSelector, owl::TextOr(GetMessages(), "MENU", "CM_SPE_MONTAGE.tip", "Choose the montage"));
    bar.AddGap();
    add(kCmEditOptions, kCmEditOptions, "CM_SPE_OPTIONS.tip", "Computation options");
    add(kCmRecompute, kCmRecompute, "CM_SPE_RECOMPUTE.tip", "Compute the spectra again");
    bar.AddGap();
    add(kCmSaveSpectra, kCmSaveSpectra, "CM_SPE_SAVE.tip", "Save the spectra to a file");
    add(kCmCopyMeasures, kCmCopyMeasures, "CM_SPE_COPY2CLPBRD.tip", "Copy the measures to the clipboard");
    bar.AddGap();
    add(kCmNarrow, kCmNarrow, "CM_SPE_NARROW.tip", "Halve the frequency range");
    add(kCmWide, kCmWide, "CM_SPE_WIDE.tip", "Double the frequency range");
    add(kCmSpectraTable, kCmSpectraTable, "CM_SPE_GRID_SIZE.tip", "Rows and columns of the grid");
    bar.AddGap();
    add(kCmSpectraInfo, kCmSpectraInfo, "CM_SPE_INFO.tip", "Parameters and epochs of the analysis");
    constexpr int kEntityWidth = 7;
    constexpr int kHorizontalWidth = 5;
    constexpr int kVerticalWidth = 9;
    status_ = {bar.AddText(kEntityWidth), bar.AddText(kHorizontalWidth), bar.AddText(kVerticalWidth)};
}

void Spectrum::UpdateStatusBar() {
    const StatusTexts texts = StatusTextsOf(*manager_, GetMessages());
    const std::string* shown[] = {&texts.entity, &texts.horizontal, &texts.vertical};
    for (std::size_t i = 0; i < status_.size(); ++i) {
        if (status_[i] != nullptr) {
            status_[i]->setText(QString::fromStdString(*shown[i]));
        }
    }
}

void Spectrum::DrawStatusBar() const {
    SetMessageBar(TimeIntervalText(*manager_, GetMessages()));
}
