// SPDX-License-Identifier: GPL-3.0-or-later
// What the settings form does when the user acts.
#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/modal_gateway.h"
#include "side_bar/macro_file_name.h"
#include "side_bar/resolution_text.h"
#include "side_bar/spectrum_macro_form.h"
#include "side_bar/texts.h"
#include "side_bar/user_numbers.h"
#include "spectra_contract/spectra_macro.h"
#include "ui_spectrum_macro.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string>

namespace side_bar = orvanta::side_bar;

namespace {

std::string FormText(const char* key, const char* builtIn) {
    return owl::TextOr(PModule::Named("Orvanta"), "TFormSpectrumMacro", key, builtIn);
}

std::set<std::string> SelectedLabels(const owl::ReportList& list) {
    std::set<std::string> labels;
    for (const QTreeWidgetItem* row : list.selectedItems()) {
        labels.insert(static_cast<const XEventType*>(list.DataOf(row))->GetLabel());
    }
    return labels;
}

} // namespace

double TFormSpectrumMacro::GetFFTSeconds() const {
    for (const auto& [button, seconds] : FixedLengths()) {
        if (button->isChecked()) {
            return seconds;
        }
    }
    const bool custom = ui_->rbFFT_Custom->isChecked();
    return (custom ? side_bar::ParseNumber(ui_->ebCustomSeconds->text()) : std::nullopt).value_or(1.0);
}

void TFormSpectrumMacro::UpdateResolution() {
    ui_->ebCustomSeconds->setEnabled(ui_->rbFFT_Custom->isChecked());
    const side_bar::ResolutionTexts texts = side_bar::ResolutionTextsOf(GetFFTSeconds(), samplingRate_);
    ui_->ebNumSamples->setText(texts.samples);
    ui_->ebResolution->setText(texts.resolution);
    ui_->ebPadding->setText(texts.padding);
}

void TFormSpectrumMacro::UpdateControls() {
    ui_->lvStateAccept->setEnabled(ui_->rbByStateEvent->isChecked());
    ui_->lvSpotAccept->setEnabled(ui_->rbBySpotEvent->isChecked());
    ui_->gbSegmentation->setEnabled(ui_->rbBySpotEvent->isChecked());
    // The edit is part of its spinner.
    ui_->udDuration->setEnabled(ui_->rbByDuration->isChecked());
}

void TFormSpectrumMacro::UpdateEpochsSelMode() {
    ui_->rgExactNum->setEnabled(ui_->rbESMUseExactly->isChecked());
}

void TFormSpectrumMacro::ReadControls() {
    macro_->SetFFTSeconds(GetFFTSeconds());
    for (const QListWidgetItem* taper : ui_->lbWindow->selectedItems()) {
        macro_->SetDSPWindowStr(taper->text().toStdString());
    }
    macro_->SetOverlapPerc(static_cast<unsigned>(ui_->udOverlap->value()));
    using Interval = SpectraMacro::TimeIntervalSelectMode;
    if (ui_->rbByDuration->isChecked()) {
        macro_->SetTimeIntervalSelectMode(Interval::ByDuration);
    } else if (ui_->rbByStateEvent->isChecked()) {
        macro_->SetTimeIntervalSelectMode(Interval::ByStateEvents);
    } else if (ui_->rbBySpotEvent->isChecked()) {
        macro_->SetTimeIntervalSelectMode(Interval::BySpotEvents);
    } else if (ui_->rbAllRec->isChecked()) {
        macro_->SetTimeIntervalSelectMode(Interval::AllRecording);
    }
    macro_->SetFixedDurationSec(static_cast<unsigned>(ui_->udDuration->value()));
    macro_->SetPreTriggerMS(ui_->udPreTrigger->value());
    macro_->SetTrgDurationMS(ui_->udTrgDuration->value());
    macro_->SpotStepCount = static_cast<std::uint32_t>(ui_->udSpotStepCount->value());
    macro_->SpotStepInc = static_cast<std::uint32_t>(ui_->udSpotStepInc->value());
    macro_->SetAcceptStateList(SelectedLabels(*ui_->lvStateAccept));
    macro_->SetAcceptSpotList(SelectedLabels(*ui_->lvSpotAccept));
    macro_->SetRejectEventsList(SelectedLabels(*ui_->lvReject));
    macro_->Color = cdSpeColor_;
    macro_->SetContrastValue(ui_->udContrastValue->value());
    using Epochs = SpectraMacro::EpochsSelectionMode;
    macro_->SetEpochsSelMode(ui_->rbESMAllEpochs->isChecked()     ? Epochs::All
                             : ui_->rbExactNumRandom->isChecked() ? Epochs::RandomN
                                                                  : Epochs::FirstN);
    macro_->SetNumEpochsToUse(static_cast<std::uint64_t>(ui_->udUseExactlyCountEpochs->value()));
}

void TFormSpectrumMacro::BitBtnComputeClick() {
    if (editable_) {
        ReadControls();
        // Settings that have no file are computed with all the same.
        macro_->Save();
    }
    accept();
}

void TFormSpectrumMacro::BitBtnSaveAsClick() {
    if (editable_) {
        ReadControls();
        SaveUnderNewName();
    }
    accept();
}

void TFormSpectrumMacro::SaveUnderNewName() {
    std::array<char, 260> path{};
    const std::string title = FormText("SaveTitle", "Save Macro Input Box");
    const std::string prompt = FormText("SavePrompt", "Insert the name of the spectral analysis macro");
    const std::string name = FormText("SaveName", "NoName");
    // Other answers have been told to the user.
    if (GetMacroFileName(GetHandle(), title.c_str(), prompt.c_str(), name.c_str(), macroFolder_.data(),
                         ".smx", path.data(), static_cast<int>(path.size())) == 0 &&
        macro_->SaveAs(path.data()) != 0) {
        owl::CurrentModalGateway().ShowMessage(
            GetHandle(), FormText("SaveFailed", "Unable to save the macro file:\n") + path.data(),
            side_bar::MacroText("ERROR", "Error"), owl::kMbOk + owl::kMbIconExclamation);
    }
}

void TFormSpectrumMacro::BtnSpeColorClick() {
    const std::optional<owl::TColor> chosen = owl::CurrentModalGateway().AskColor(GetHandle(), cdSpeColor_);
    if (chosen) {
        cdSpeColor_ = *chosen;
        macro_->Color = *chosen;
        PaintSwatch();
    }
}

void TFormSpectrumMacro::PaintSwatch() {
    QPalette colors = ui_->imSpeColor->palette();
    colors.setColor(QPalette::Window,
                    QColor(owl::Red(cdSpeColor_), owl::Green(cdSpeColor_), owl::Blue(cdSpeColor_)));
    ui_->imSpeColor->setPalette(colors);
}

void TFormSpectrumMacro::rbFFTSecondsClick() {
    UpdateResolution();
}

void TFormSpectrumMacro::ebCustomSecondsChange() {
    UpdateResolution();
}

void TFormSpectrumMacro::rbAllRecClick() {
    UpdateControls();
}

void TFormSpectrumMacro::rbByDurationClick() {
    UpdateControls();
}

void TFormSpectrumMacro::rbByStateEventClick() {
    UpdateControls();
}

void TFormSpectrumMacro::rbBySpotEventClick() {
    UpdateControls();
}

void TFormSpectrumMacro::rbESMAllEpochsClick() {
    UpdateEpochsSelMode();
}

void TFormSpectrumMacro::rbESMUseExactlyClick() {
    UpdateEpochsSelMode();
}

void TFormSpectrumMacro::ebUseExactlyCountEpochsChange() {
    const std::string count = ui_->udUseExactlyCountEpochs->Edit()->text().toStdString();
    ui_->rgExactNum->setTitle(QString::fromStdString(
        side_bar::FillIn(FormText("EpochsCriteria", "%s epochs selection mode"), {count})));
}
