// SPDX-License-Identifier: GPL-3.0-or-later
// What the user does with the panel.
#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/wait_cursor.h"
#include "side_bar/analysis_list.h"
#include "side_bar/export_form.h"
#include "side_bar/spectra_panel.h"
#include "side_bar/spectrum_macro_form.h"
#include "side_bar/texts.h"
#include "spectra_contract/module_entry.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "ui_spectra_panel.h"

#include <QLocale>

#include <sstream>

using namespace orvanta::side_bar;

namespace {

constexpr int kModeEdit = 2;

std::string SpectraText(const char* key, const char* builtIn) {
    return owl::TextOr(PModule::Named("Orvanta"), "TFormListenerSpectra1", key, builtIn);
}

std::string EraseQuestion(const SpectMacroResult& analysis) {
    std::ostringstream info;
    analysis.GetShortInfo(info);
    return FillIn(SpectraText("Erase", "This will remove the spectrum %s (%s). Are you sure?"),
                  {analysis.GetName(), info.str()});
}

} // namespace

void TFormListenerSpectra1::FormActivate() {
    FillListSpectra();
}

void TFormListenerSpectra1::lvMainListSelectItem(const QTreeWidgetItem* row, bool selected) {
    SpectMacroResult* analysis = selected ? main_->Of(row) : nullptr;
    if (analysis != nullptr) {
        manager_->SetMain(analysis);
    }
    UpdateControls();
    FillSecondListSpectra();
    ShowInView();
}

void TFormListenerSpectra1::lvSecondaryListSelectItem(const QTreeWidgetItem* row, bool selected) {
    if (manager_ != nullptr) {
        manager_->SetSecondary(selected ? secondary_->Of(row) : nullptr);
    }
    ShowInView();
}

void TFormListenerSpectra1::lvMainListMouseUp() {
    FocusView(View());
}

void TFormListenerSpectra1::lvSecondaryListMouseUp() {
    FocusView(View());
}

void TFormListenerSpectra1::cbStatClick() {
    if (manager_ != nullptr) {
        manager_->SetShowTTest(ui_->cbStat->isChecked());
    }
    ShowInView();
}

void TFormListenerSpectra1::cbSpectRatioClick() {
    if (manager_ != nullptr) {
        manager_->SetShowRatio(ui_->cbSpectRatio->isChecked());
    }
    ShowInView();
}

void TFormListenerSpectra1::ShowThresholdMeaning() {
    constexpr int kDigits = 12;
    const auto text = [](double number) { return QLocale().toString(number, 'g', kDigits).toStdString(); };
    const double typed = GetThreshold();
    std::string meaning;
    if (typed > 0) {
        meaning =
            FillIn(SpectraText("ThresholdMeans", "%s stands for %s %"), {text(typed), text(100 * typed)});
    } else if (manager_ != nullptr) {
        meaning = FillIn(SpectraText("ThresholdStays", "No number up to 1: %s stays"),
                         {text(manager_->GetPThreshold())});
    }
    ui_->lbThresholdMeaning->setText(QString::fromStdString(meaning));
    ui_->cbThreshold->setAccessibleDescription(ui_->lbThresholdMeaning->text());
}

void TFormListenerSpectra1::cbThresholdChange() {
    ShowThresholdMeaning();
    const double threshold = GetThreshold();
    if (threshold < 0 || manager_ == nullptr || threshold == manager_->GetPThreshold()) {
        return;
    }
    manager_->SetPThreshold(threshold);
    RepaintView(View(), false);
}

void TFormListenerSpectra1::BtnSpectraNewClick() {
    if (recording_ == nullptr || manager_ == nullptr) {
        return;
    }
    CreateNewSpectrum(platform_, View(), *manager_, recording_);
    FillListSpectra();
}

void TFormListenerSpectra1::BtnEraseSpectraClick() {
    SpectMacroResult* analysis = main_->Selected();
    if (analysis == nullptr || owl::CurrentModalGateway().ShowMessage(GetHandle(), EraseQuestion(*analysis),
                                                                      MacroText("WARNING", "Warning"),
                                                                      owl::kMbYesNo) != owl::kIdYes) {
        return;
    }
    manager_->Remove(analysis);
    delete analysis;
    FillListSpectra();
    ShowInView();
}

void TFormListenerSpectra1::BtnExportClick() {
    TSpectraExportForm form(GetHandle(), manager_);
    form.ShowModal();
}

void TFormListenerSpectra1::BtnEditClick() {
    SpectMacroResult* analysis = main_->Selected();
    if (analysis == nullptr || recording_ == nullptr) {
        return;
    }
    SensorList sensors;
    recording_->GetTraceInfo()->GetSensorsList(sensors, Sensor::Class::Eeg);
    TFormSpectrumMacro settings(GetHandle(), "", &analysis->GetMacro(), recording_->GetEventsManager(),
                                sensors, kModeEdit);
    if (settings.ShowModal() == owl::kIdOk) {
        {
            const owl::WaitCursor wait;
            analysis->ComputeFFT(recording_, platform_->GetGUI());
        }
        SomethingChanged();
    }
}

void TFormListenerSpectra1::BtnErpProcessClick() {
    SpectMacroResult* analysis = main_->Selected();
    if (analysis == nullptr || platform_ == nullptr) {
        return;
    }
    PerformComputation(platform_, GetHandle(), analysis, recording_);
    SomethingChanged();
}
