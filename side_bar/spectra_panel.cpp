// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/spectra_panel.h"

#include "host/toolkit/event_guard.h"
#include "host/toolkit/form_texts.h"
#include "host/toolkit/icon.h"
#include "host/toolkit/message_module.h"
#include "side_bar/analysis_list.h"
#include "side_bar/description.h"
#include "side_bar/user_numbers.h"
#include "spectra_contract/spectra_mgr.h"
#include "ui_spectra_panel.h"

#include <QLocale>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <sstream>

using orvanta::side_bar::AnalysisList;
using orvanta::side_bar::FocusView;
using orvanta::side_bar::RepaintView;

namespace {

constexpr int kColorColumn = 2;

/// "Macro", "Count" and "Color", the widths of the layout at the least.
void PrepareList(owl::ReportList& list) {
    constexpr int kWidths[] = {100, 65, 40};
    for (int column = 0; column < list.columnCount(); ++column) {
        list.setColumnWidth(column, kWidths[column]);
    }
    list.StretchCaptions();
}

} // namespace

TFormListenerSpectra1::TFormListenerSpectra1(HWND view, GenericPlatform* platform, EEGFileInfoType* recording,
                                             SpectraMgr* manager)
    : TFormListener(view), platform_(platform), recording_(recording), manager_(manager),
      view_(view.Widget()), ui_(std::make_unique<Ui::TFormListenerSpectra1>()) {
    ui_->setupUi(this);
    main_ = std::make_unique<AnalysisList>(*ui_->lvMainList, manager, kColorColumn);
    secondary_ = std::make_unique<AnalysisList>(*ui_->lvSecondaryList, manager, kColorColumn);
    owl::TranslateForm(*this, PModule::Named("Orvanta"), "TFormListenerSpectra1");
    SetUpControls();
    ConnectHandlers();
    SomethingChanged();
}

TFormListenerSpectra1::~TFormListenerSpectra1() = default;

void TFormListenerSpectra1::SetUpControls() {
    const std::pair<QPushButton*, const char*> icons[] = {{ui_->BtnSpectraNew, "new"},
                                                          {ui_->BtnEdit, "edit"},
                                                          {ui_->BtnEraseSpectra, "erase"},
                                                          {ui_->BtnExport, "save_as"},
                                                          {ui_->BtnErpProcess, "recompute"}};
    for (const auto& [button, name] : icons) {
        button->setIcon(owl::IconOf(QString(name)));
    }
    for (owl::ReportList* list : {ui_->lvMainList, ui_->lvSecondaryList}) {
        PrepareList(*list);
        list->viewport()->installEventFilter(this);
    }
    OfferThresholds();
    ui_->cbThreshold->installEventFilter(this);
    ui_->scroller->viewport()->installEventFilter(this);
    roomForAll_ = ui_->groups->minimumSizeHint().height();
    // As wide as the controls need, also where they do not fit into the height.
    ui_->scroller->setMinimumWidth(ui_->groups->minimumSizeHint().width() +
                                   ui_->scroller->verticalScrollBar()->sizeHint().width());
}

void TFormListenerSpectra1::OfferThresholds() {
    // With the decimal sign that they are read with.
    for (const auto& [threshold, decimals] : {std::pair(0.10, 2), std::pair(0.05, 2), std::pair(0.01, 2),
                                              std::pair(0.005, 3), std::pair(0.001, 3)}) {
        ui_->cbThreshold->addItem(QLocale().toString(threshold, 'f', decimals));
    }
    ui_->cbThreshold->setCurrentIndex(1);
    ShowThresholdMeaning();
}

void TFormListenerSpectra1::ConnectHandlers() {
    using Panel = TFormListenerSpectra1;
    const auto onClick = [this](QPushButton* button, void (Panel::*handler)()) {
        connect(button, &QPushButton::clicked, this,
                [this, handler] { owl::RunGuarded([&] { (this->*handler)(); }); });
    };
    onClick(ui_->BtnSpectraNew, &Panel::BtnSpectraNewClick);
    onClick(ui_->BtnEraseSpectra, &Panel::BtnEraseSpectraClick);
    onClick(ui_->BtnExport, &Panel::BtnExportClick);
    onClick(ui_->BtnEdit, &Panel::BtnEditClick);
    onClick(ui_->BtnErpProcess, &Panel::BtnErpProcessClick);
    connect(ui_->cbStat, &QCheckBox::toggled, this, [this] { cbStatClick(); });
    connect(ui_->cbSpectRatio, &QCheckBox::toggled, this, [this] { cbSpectRatioClick(); });
    connect(ui_->cbThreshold, &QComboBox::currentTextChanged, this, [this] { cbThresholdChange(); });
    const auto onSelect = [this](const AnalysisList& list,
                                 void (Panel::*handler)(const QTreeWidgetItem*, bool)) {
        connect(&list.Widget(), &QTreeWidget::itemSelectionChanged, this, [this, &list, handler] {
            const QTreeWidgetItem* row = list.SelectedRow();
            (this->*handler)(row, row != nullptr);
        });
    };
    onSelect(*main_, &Panel::lvMainListSelectItem);
    onSelect(*secondary_, &Panel::lvSecondaryListSelectItem);
}

void TFormListenerSpectra1::ShowInView() {
    FocusView(View());
    RepaintView(View(), true);
}

void TFormListenerSpectra1::SomethingChanged() {
    UpdateControls();
    FillListSpectra();
    ShowInView();
}

void TFormListenerSpectra1::FillListSpectra() {
    if (filling_) {
        return; // the view that gets the focus may ask for it again
    }
    const QScopedValueRollback filling(filling_, true);
    main_->Clear();
    if (manager_ == nullptr || manager_->Size() == 0) {
        return;
    }
    for (SpectMacroResult* analysis : *manager_) {
        QTreeWidgetItem* row = main_->Add(*analysis);
        if (analysis == manager_->GetMain()) {
            ui_->lvMainList->SelectRow(row);
            ui_->lvMainList->scrollToItem(row);
        }
    }
    UpdateControls();
    ShowInView();
}

void TFormListenerSpectra1::FillSecondListSpectra() {
    secondary_->Clear();
    const SpectMacroResult* shown = main_->Selected();
    if (shown == nullptr) {
        return;
    }
    for (SpectMacroResult* analysis : *manager_) {
        if (analysis == shown || analysis->GetFFTResolution() != shown->GetFFTResolution() ||
            !(analysis->GetMontage() == shown->GetMontage())) {
            continue;
        }
        QTreeWidgetItem* row = secondary_->Add(*analysis);
        if (analysis == manager_->GetSecondary()) {
            ui_->lvSecondaryList->SelectRow(row);
            ui_->lvSecondaryList->scrollToItem(row);
        }
    }
    FocusView(View());
}

void TFormListenerSpectra1::UpdateControls() {
    ui_->BtnSpectraNew->setEnabled(recording_ != nullptr);
    ui_->ebSpectrumMemo->clear();
    const QTreeWidgetItem* row = main_->SelectedRow();
    const SpectMacroResult* shown = main_->Of(row);
    ui_->BtnEdit->setEnabled(shown != nullptr);
    ui_->BtnExport->setEnabled(row != nullptr && manager_ != nullptr && manager_->Size() > 0);
    // The last spectrum stays.
    ui_->BtnEraseSpectra->setEnabled(row != nullptr && ui_->lvMainList->topLevelItemCount() >= 2);
    if (row == nullptr) {
        FocusView(View());
    }
    if (shown != nullptr) {
        std::ostringstream text;
        shown->GetLongInfo(text);
        orvanta::side_bar::ShowDescription(*ui_->ebSpectrumMemo, text.str());
    }
    ui_->cbStat->setChecked(row != nullptr && secondary_->SelectedRow() != nullptr);
    // One spectrum has no variance; that of the secondary is not asked for.
    if (ui_->cbStat->isChecked() && shown != nullptr && shown->GetFFTCount() < 2) {
        ui_->cbStat->setChecked(false);
    }
}

double TFormListenerSpectra1::GetThreshold() const {
    const double typed = orvanta::side_bar::ParseNumber(ui_->cbThreshold->currentText()).value_or(-1.0);
    return typed > 0 && typed <= 1 ? typed : -1.0;
}

bool TFormListenerSpectra1::eventFilter(QObject* watched, QEvent* event) {
    const bool handled = TFormListener::eventFilter(watched, event);
    if (event->type() == QEvent::Wheel && watched == ui_->cbThreshold && !ui_->cbThreshold->hasFocus()) {
        event->ignore(); // the panel scrolls under the mouse; the threshold stays
        return true;
    }
    if (event->type() == QEvent::Resize && watched == ui_->scroller->viewport()) {
        // Both lists come first: what is told of one of them is left out where all have no room.
        ui_->ebSpectrumMemo->setVisible(ui_->scroller->viewport()->height() >= roomForAll_);
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        if (watched == ui_->lvMainList->viewport()) {
            lvMainListMouseUp();
        } else if (watched == ui_->lvSecondaryList->viewport()) {
            lvSecondaryListMouseUp();
        }
    }
    return handled;
}

void TFormListenerSpectra1::showEvent(QShowEvent* event) {
    TFormListener::showEvent(event);
    if (!event->spontaneous()) {
        FormActivate();
    }
}
