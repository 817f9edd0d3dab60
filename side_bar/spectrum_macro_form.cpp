// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/spectrum_macro_form.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/icon.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/services.h"
#include "side_bar/taper_names.h"
#include "side_bar/texts.h"
#include "side_bar/user_numbers.h"
#include "spectra_contract/spectra_macro.h"
#include "ui_spectrum_macro.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <utility>

namespace side_bar = orvanta::side_bar;

namespace {

/// What a spinner can be set to.
int SpinnerNumber(std::uint64_t value) {
    return static_cast<int>(std::min<std::uint64_t>(value, std::numeric_limits<int>::max()));
}

/// Captions take the room, numbers what they need.
void PrepareEventList(owl::ReportList& list) {
    list.SetMultiSelect(true);
    QHeaderView& header = *list.header();
    header.setStretchLastSection(false);
    header.setSectionResizeMode(QHeaderView::ResizeToContents);
    header.setSectionResizeMode(0, QHeaderView::Stretch);
    for (int column = 1; column < list.columnCount(); ++column) {
        list.headerItem()->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    }
    list.headerItem()->setTextAlignment(0, Qt::AlignLeft | Qt::AlignVCenter);
}

/// Sets a label apart that the settings name and the recording has not.
void MarkLacking(QTreeWidgetItem& row) {
    const std::string text = owl::TextOr(PModule::Named("Orvanta"), "TFormSpectrumMacro", "Lacking",
                                         "%s: not in this recording. Kept in the settings while selected");
    const QString why = QString::fromStdString(side_bar::FillIn(text, {row.text(0).toStdString()}));
    QFont font = row.treeWidget()->font();
    font.setItalic(true);
    for (int column = 0; column < row.columnCount(); ++column) {
        row.setFont(column, font);
        row.setToolTip(column, Qt::convertFromPlainText(why));
    }
    row.setData(0, Qt::AccessibleDescriptionRole, why);
}

void FillEventList(owl::ReportList& list, const std::vector<side_bar::EventRow>& rows,
                   const std::set<std::string>& selected) {
    for (const side_bar::EventRow& row : rows) {
        const std::string& label = row.type.GetLabel();
        QStringList texts{QString::fromStdString(label), QString::number(row.count)};
        if (row.type.GetClass() == EventClass::State) {
            texts << QString::number(row.seconds);
        }
        QTreeWidgetItem* shown = list.AddRow(texts, &row.type);
        list.SelectRow(shown, selected.contains(label));
        shown->setToolTip(0, Qt::convertFromPlainText(texts.front())); // for labels that are cut
        if (row.count == 0) {
            MarkLacking(*shown);
            list.PutLast(shown);
        }
    }
    list.SortByCaption();
}

/// Lets Tab reach each group of radio buttons at the checked one, as it does once a group has had the focus.
void StopTabAtCheckedButtons(const QWidget& form) {
    for (QRadioButton* button : form.findChildren<QRadioButton*>()) {
        button->setFocusPolicy(button->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

} // namespace

TFormSpectrumMacro::TFormSpectrumMacro(HWND parent, const char* folder, SpectraMacro* macro,
                                       EventsManager* events, const SensorList& sensors, int mode)
    : TForm(parent), ui_(std::make_unique<Ui::TFormSpectrumMacro>()), macro_(macro), events_(events),
      sensors_(sensors), samplingRate_(sensors.empty() ? 1 : std::max(1U, sensors.front()->GetAcqSR())),
      editable_(mode != 0 && events != nullptr), openedFromLibrary_(mode == 1), cdSpeColor_(macro->Color) {
    std::snprintf(macroFolder_.data(), macroFolder_.size(), "%s", folder);
    ui_->setupUi(this);
    owl::TranslateForm(*this, PModule::Named("Orvanta"), "TFormSpectrumMacro");
    SetCancelButton(ui_->BitBtnCompute);
    ui_->BtnSpeColor->setIcon(owl::IconOf(QStringLiteral("colour")));
    ui_->BitBtnCompute->setIcon(owl::IconOf(QStringLiteral("compute")));
    ui_->BitBtnSaveAs->setIcon(owl::IconOf(QStringLiteral("save_as")));
    ui_->BitBtn3->setIcon(owl::IconOf(QStringLiteral("cancel")));
    ConnectHandlers();
    ShowWindowLength();
    ShowNumbers();
    ShowTapers();
    ShowEvents();
    ShowIntervals();
    ShowEpochs();
    StopTabAtCheckedButtons(*this);
}

TFormSpectrumMacro::~TFormSpectrumMacro() = default;

std::array<std::pair<QRadioButton*, double>, 6> TFormSpectrumMacro::FixedLengths() const {
    return {{{ui_->rbFFT_05s, 0.5},
             {ui_->rbFFT_10s, 1.0},
             {ui_->rbFFT_20s, 2.0},
             {ui_->rbFFT_40s, 4.0},
             {ui_->rbFFT_80s, 8.0},
             {ui_->rbFFT_160s, 16.0}}};
}

void TFormSpectrumMacro::ConnectHandlers() {
    using Handler = void (TFormSpectrumMacro::*)();
    const auto onClick = [this](QPushButton* button, Handler handler) {
        connect(button, &QPushButton::clicked, this, [this, handler] { (this->*handler)(); });
    };
    const auto onChecked = [this](QRadioButton* button, Handler handler) {
        connect(button, &QRadioButton::toggled, this, [this, handler](bool checked) {
            if (checked) {
                (this->*handler)();
            }
        });
    };
    const auto onChange = [this](QLineEdit* edit, Handler handler) {
        connect(edit, &QLineEdit::textChanged, this, [this, handler] { (this->*handler)(); });
    };
    for (const auto& [button, seconds] : FixedLengths()) {
        onChecked(button, &TFormSpectrumMacro::rbFFTSecondsClick);
    }
    onChecked(ui_->rbFFT_Custom, &TFormSpectrumMacro::rbFFTSecondsClick);
    onChange(ui_->ebCustomSeconds, &TFormSpectrumMacro::ebCustomSecondsChange);
    onChecked(ui_->rbAllRec, &TFormSpectrumMacro::rbAllRecClick);
    onChecked(ui_->rbByDuration, &TFormSpectrumMacro::rbByDurationClick);
    onChecked(ui_->rbByStateEvent, &TFormSpectrumMacro::rbByStateEventClick);
    onChecked(ui_->rbBySpotEvent, &TFormSpectrumMacro::rbBySpotEventClick);
    onChecked(ui_->rbESMAllEpochs, &TFormSpectrumMacro::rbESMAllEpochsClick);
    onChecked(ui_->rbESMUseExactly, &TFormSpectrumMacro::rbESMUseExactlyClick);
    onChange(ui_->udUseExactlyCountEpochs->Edit(), &TFormSpectrumMacro::ebUseExactlyCountEpochsChange);
    onClick(ui_->BtnSpeColor, &TFormSpectrumMacro::BtnSpeColorClick);
    onClick(ui_->BitBtnCompute, &TFormSpectrumMacro::BitBtnComputeClick);
    onClick(ui_->BitBtnSaveAs, &TFormSpectrumMacro::BitBtnSaveAsClick);
    connect(ui_->BitBtn3, &QPushButton::clicked, this, &QDialog::reject);
}

void TFormSpectrumMacro::ShowWindowLength() {
    for (QLineEdit* field : {ui_->ebNumSamples, ui_->ebResolution, ui_->ebPadding}) {
        QPalette colors = field->palette();
        colors.setBrush(QPalette::Base, Qt::transparent);
        field->setPalette(colors);
    }
    const double seconds = macro_->GetFFTSeconds();
    ui_->ebCustomSeconds->setText(side_bar::FixedText(seconds, 7, 7));
    UpdateResolution();
    for (const auto& [button, length] : FixedLengths()) {
        if (length == seconds) {
            button->setChecked(true);
            return;
        }
    }
    ui_->rbFFT_Custom->setChecked(true);
}

void TFormSpectrumMacro::ShowNumbers() {
    ui_->udOverlap->setValue(SpinnerNumber(macro_->GetOverlapPerc()));
    ui_->udDuration->setValue(SpinnerNumber(macro_->GetFixedDurationSec()));
    // Wider than the layout's ranges, so that settings from anywhere keep their numbers.
    constexpr int kMostMs = 536870911;
    ui_->udPreTrigger->setRange(-kMostMs, kMostMs);
    ui_->udPreTrigger->setValue(macro_->GetPreTriggerMS());
    ui_->udTrgDuration->setRange(-kMostMs, kMostMs);
    ui_->udTrgDuration->setValue(macro_->GetTrgDurationMS());
    ui_->udSpotStepCount->setValue(SpinnerNumber(macro_->SpotStepCount));
    ui_->udSpotStepInc->setValue(SpinnerNumber(macro_->SpotStepInc));
    ui_->udContrastValue->setValue(macro_->GetContrastValue());
    PaintSwatch();
}

void TFormSpectrumMacro::ShowTapers() {
    const QString chosen = QString::fromStdString(macro_->GetDSPWindowStr());
    for (const std::string& name :
         side_bar::TaperNamesIn(side_bar::ModuleFolder(), *owl::CurrentServices().files)) {
        ui_->lbWindow->addItem(QString::fromStdString(name));
    }
    ui_->lbWindow->setCurrentRow(0);
    for (int row = 0; row < ui_->lbWindow->count(); ++row) {
        if (ui_->lbWindow->item(row)->text().compare(chosen, Qt::CaseInsensitive) == 0) {
            ui_->lbWindow->setCurrentRow(row);
        }
    }
}

void TFormSpectrumMacro::ShowEvents() {
    for (owl::ReportList* list : {ui_->lvStateAccept, ui_->lvSpotAccept, ui_->lvReject}) {
        PrepareEventList(*list);
    }
    if (events_ == nullptr) {
        return;
    }
    stateRows_ = side_bar::EventRowsOf(*events_, EventClass::State);
    spotRows_ = side_bar::EventRowsOf(*events_, EventClass::Spot);
    const std::set<std::string> states = macro_->GetAcceptStateList();
    const std::set<std::string> spots = macro_->GetAcceptSpotList();
    const std::set<std::string> rejected = macro_->GetRejectEventsList();
    rejectRows_ = side_bar::RejectRowsOf(stateRows_, spotRows_, rejected);
    side_bar::AppendLacking(stateRows_, states, EventClass::State);
    side_bar::AppendLacking(spotRows_, spots, EventClass::Spot);
    FillEventList(*ui_->lvStateAccept, stateRows_, states);
    FillEventList(*ui_->lvReject, rejectRows_, rejected);
    FillEventList(*ui_->lvSpotAccept, spotRows_, spots);
}

void TFormSpectrumMacro::ShowIntervals() {
    using Mode = SpectraMacro::TimeIntervalSelectMode;
    switch (macro_->GetTimeIntervalSelectMode()) {
    case Mode::AllRecording:
        ui_->rbAllRec->setChecked(true);
        break;
    case Mode::ByDuration:
        ui_->rbByDuration->setChecked(true);
        break;
    case Mode::ByStateEvents:
        ui_->rbByStateEvent->setChecked(true);
        break;
    case Mode::BySpotEvents:
        ui_->rbBySpotEvent->setChecked(true);
        break;
    }
    UpdateControls();
}

void TFormSpectrumMacro::ShowEpochs() {
    using Mode = SpectraMacro::EpochsSelectionMode;
    const Mode mode = macro_->GetEpochsSelMode();
    if (mode == Mode::FirstN || mode == Mode::RandomN) {
        ui_->rbESMUseExactly->setChecked(true);
        (mode == Mode::FirstN ? ui_->rbExactNumFirst : ui_->rbExactNumRandom)->setChecked(true);
    } else {
        ui_->rbESMAllEpochs->setChecked(true);
    }
    ui_->udUseExactlyCountEpochs->setValue(SpinnerNumber(macro_->GetNumEpochsToUse()));
}
