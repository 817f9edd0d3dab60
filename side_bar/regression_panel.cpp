// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/regression_panel.h"

#include "host/toolkit/event_guard.h"
#include "host/toolkit/form_texts.h"
#include "host/toolkit/icon.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/wait_cursor.h"
#include "side_bar/regression_results.h"
#include "side_bar/texts.h"
#include "spectra_contract/bci_regression.h"
#include "spectra_contract/module_entry.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/spectra_mgr.h"
#include "ui_regression_panel.h"

#include <QScopedValueRollback>
#include <QScrollBar>
#include <QShowEvent>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

using orvanta::side_bar::AnalysisList;
using orvanta::side_bar::FocusView;
using orvanta::side_bar::MacroText;
using orvanta::side_bar::RepaintView;

namespace {

constexpr int kColorColumn = 3;
constexpr int kColumnWidths[] = {88, 45, 40, 30};

// What the library answers when there is nothing to fit.
constexpr int kNoObservations = -10;
constexpr int kNoY = -20;
constexpr int kNoX = -30;
constexpr int kCancelled = -60;

void AddRow(AnalysisList& list, SpectMacroResult& analysis, bool selected) {
    QTreeWidgetItem* row =
        list.Add(analysis, {QString::number(analysis.GetMacro().GetContrastValue()), QString()});
    if (selected) {
        // The focus goes with it: a row that only seems chosen would not enter the regression.
        list.Widget().setCurrentItem(row, 0, QItemSelectionModel::NoUpdate);
        list.Widget().SelectRow(row);
    }
}

std::string BCIText(const char* key, const char* builtIn) {
    return owl::TextOr(PModule::Named("Orvanta"), "TFormListenerSpectraBCI", key, builtIn);
}

std::vector<const SpectMacroResult*> SelectedOf(const AnalysisList& list) {
    std::vector<const SpectMacroResult*> analyses;
    for (const QTreeWidgetItem* row : list.Widget().selectedItems()) {
        analyses.push_back(list.Of(row));
    }
    return analyses;
}

} // namespace

TFormListenerSpectraBCI::TFormListenerSpectraBCI(HWND view, GenericPlatform* platform,
                                                 EEGFileInfoType* recording, SpectraMgr* manager)
    : TFormListener(view), ui_(std::make_unique<Ui::TFormListenerSpectraBCI>()), view_(view.Widget()),
      platform_(platform), recording_(recording), manager_(manager) {
    ui_->setupUi(this);
    owl::TranslateForm(*this, PModule::Named("Orvanta"), "TFormListenerSpectraBCI");
    mainList_ = std::make_unique<AnalysisList>(*ui_->lvMainList, manager, kColorColumn);
    secondaryList_ = std::make_unique<AnalysisList>(*ui_->lvSecondaryList, manager, kColorColumn);
    SetUpLists();
    ui_->BtnRegression->setIcon(owl::IconOf(QStringLiteral("compute")));
    connect(ui_->BtnRegression, &QPushButton::clicked, this,
            [this] { owl::RunGuarded([this] { BtnRegressionClick(); }); });
    SomethingChanged();
}

TFormListenerSpectraBCI::~TFormListenerSpectraBCI() = default;

void TFormListenerSpectraBCI::SetUpLists() {
    ui_->lvSecondaryList->SetMultiSelect(true);
    for (owl::ReportList* list : {ui_->lvMainList, ui_->lvSecondaryList}) {
        for (int column = 0; column < list->columnCount(); ++column) {
            list->setColumnWidth(column, kColumnWidths[column]);
        }
        list->StretchCaptions();
        connect(list, &QTreeWidget::clicked, this, [this] { FocusView(View()); });
    }
    connect(ui_->lvMainList, &QTreeWidget::itemSelectionChanged, this,
            &TFormListenerSpectraBCI::lvMainListSelectItem);
    connect(ui_->lvSecondaryList, &QTreeWidget::itemSelectionChanged, this,
            &TFormListenerSpectraBCI::lvSecondaryListSelectItem);
    // As wide as the controls need, also where they do not fit into the height.
    ui_->scroller->setMinimumWidth(ui_->groups->minimumSizeHint().width() +
                                   ui_->scroller->verticalScrollBar()->sizeHint().width());
}

void TFormListenerSpectraBCI::SomethingChanged() {
    UpdateControls();
    FillListSpectra();
    FocusView(View());
    RepaintView(View(), true);
}

void TFormListenerSpectraBCI::FillListSpectra() {
    if (filling_) {
        return;
    }
    const QScopedValueRollback<bool> guard(filling_, true);
    mainList_->Clear();
    if (manager_ == nullptr || manager_->Size() == 0) {
        return;
    }
    for (SpectMacroResult* analysis : *manager_) {
        AddRow(*mainList_, *analysis, analysis == manager_->GetMain());
    }
    if (mainList_->SelectedRow() == nullptr) {
        FillSecondListSpectra(); // no row told of its selection
    }
    UpdateControls();
    FocusView(View());
    RepaintView(View(), true);
}

void TFormListenerSpectraBCI::FillSecondListSpectra() {
    std::vector<const SpectMacroResult*> selected = SelectedOf(*secondaryList_);
    secondaryList_->Clear();
    const SpectMacroResult* main = mainList_->Selected();
    if (main == nullptr) {
        return;
    }
    std::vector<SpectMacroResult*> others;
    std::copy_if(manager_->begin(), manager_->end(), std::back_inserter(others),
                 [main](const SpectMacroResult* other) {
                     return other != main && other->GetFFTResolution() == main->GetFFTResolution() &&
                            other->GetMontage() == main->GetMontage();
                 });
    const SpectMacroResult* secondary = manager_->GetSecondary();
    const bool chosenElsewhere = secondary != nullptr && secondary != secondary_;
    if (chosenElsewhere || std::ranges::find_first_of(selected, others) == selected.end()) {
        selected = {secondary};
    }
    secondary_ = secondary;
    for (SpectMacroResult* other : others) {
        AddRow(*secondaryList_, *other, std::ranges::find(selected, other) != selected.end());
    }
    FocusView(View());
}

void TFormListenerSpectraBCI::UpdateControls() {
    if (mainList_->SelectedRow() == nullptr) {
        ui_->BtnRegression->setEnabled(false);
        FocusView(View());
        return;
    }
    ui_->BtnRegression->setEnabled(mainList_->Selected() != nullptr &&
                                   !ui_->lvSecondaryList->selectedItems().isEmpty());
}

void TFormListenerSpectraBCI::showEvent(QShowEvent* event) {
    TFormListener::showEvent(event);
    if (!event->spontaneous()) {
        FillListSpectra(); // the panel in front before may have changed the analyses
    }
}

void TFormListenerSpectraBCI::lvMainListSelectItem() {
    if (SpectMacroResult* main = mainList_->Selected()) {
        manager_->SetMain(main);
    }
    FillSecondListSpectra();
    UpdateControls();
    FocusView(View());
    RepaintView(View(), true);
}

void TFormListenerSpectraBCI::lvSecondaryListSelectItem() {
    UpdateControls();
}

void TFormListenerSpectraBCI::BtnProcessClick() {
    if (SpectMacroResult* main = mainList_->Selected()) {
        PerformComputation(platform_, GetHandle(), main, recording_);
        SomethingChanged();
    }
}

std::list<SpectMacroResult*> TFormListenerSpectraBCI::AnalysesFor(SpectMacroResult& main) const {
    std::list<SpectMacroResult*> analyses{&main};
    const owl::ReportList& list = *ui_->lvSecondaryList;
    for (int i = 0; i < list.topLevelItemCount(); ++i) {
        if (list.topLevelItem(i) == list.currentItem()) {
            analyses.push_back(secondaryList_->Selected());
        }
    }
    return analyses;
}

void TFormListenerSpectraBCI::ShowCode(const char* key, const char* builtIn) {
    owl::CurrentModalGateway().ShowMessage(GetHandle(), BCIText(key, builtIn), MacroText("ERROR", "Error"),
                                           owl::kMbIconExclamation);
}

void TFormListenerSpectraBCI::BtnRegressionClick() {
    SpectMacroResult* main = mainList_->Selected();
    if (main == nullptr || ui_->lvSecondaryList->selectedItems().isEmpty()) {
        return;
    }
    const std::list<SpectMacroResult*> analyses = AnalysesFor(*main);
    const std::set<const SensorType*> sensors = GetBCISensors(*main);
    std::list<BCIReg> results;
    int code = 0;
    const QPointer<TFormListenerSpectraBCI> panel = this;
    {
        const owl::WaitCursor wait;
        std::unique_ptr<GenericProgress> progress;
        if (platform_ != nullptr) {
            const std::string text = BCIText("Computing", "Computing the regressions");
            progress.reset(platform_->CreateProgress(text.c_str(), MSWindow(GetHandle())));
        }
        code = manager_->ComputeBCIRegression(analyses, results, sensors, ui_->udLowFreq->value(),
                                              ui_->udHighFreq->value(), progress.get());
    }
    if (panel.isNull() || code == kCancelled) {
        return;
    }
    switch (code) {
    case 0: {
        TFormBCIResults form(GetHandle(), results, analyses, platform_);
        form.ShowModal();
        break;
    }
    case kNoObservations:
        ShowCode("NoObservations", "No observations");
        break;
    case kNoY:
        ShowCode("NoY", "No Y values");
        break;
    case kNoX:
        ShowCode("NoX", "No X values");
        break;
    default:
        ShowCode("GenericError", "Generic Error");
    }
}
