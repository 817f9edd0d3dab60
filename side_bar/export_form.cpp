// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/export_form.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/icon.h"
#include "host/toolkit/message_module.h"
#include "side_bar/analysis_list.h"
#include "side_bar/texts.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/spectra_export.h"
#include "spectra_contract/spectra_mgr.h"
#include "ui_export_form.h"

#include <QLocale>

#include <exception>

using orvanta::side_bar::AnalysisList;

namespace {

constexpr int kColumnWidths[] = {120, 60, 90};
constexpr const char* kSection = "TSpectraExportForm";

std::string ExportText(const char* key, const char* builtIn) {
    return owl::TextOr(PModule::Named("Orvanta"), kSection, key, builtIn);
}

} // namespace

TSpectraExportForm::TSpectraExportForm(HWND owner, SpectraMgr* manager)
    : TForm(owner), ui_(std::make_unique<Ui::TSpectraExportForm>()), manager_(manager) {
    ui_->setupUi(this);
    list_ = std::make_unique<AnalysisList>(*ui_->lvSpectra, manager);
    owl::TranslateForm(*this, PModule::Named("Orvanta"), kSection);
    SetUpControls();
    FormCreate();
}

TSpectraExportForm::~TSpectraExportForm() = default;

void TSpectraExportForm::SetUpControls() {
    ui_->lvSpectra->SetMultiSelect(true);
    for (int column = 0; column < ui_->lvSpectra->columnCount(); ++column) {
        ui_->lvSpectra->setColumnWidth(column, kColumnWidths[column]);
    }
    ui_->lvSpectra->StretchCaptions();
    ui_->BitBtnOk->setIcon(owl::IconOf(QStringLiteral("ok")));
    ui_->BitBtnCancel->setIcon(owl::IconOf(QStringLiteral("cancel")));
    SetCancelButton(ui_->BitBtnCancel);
    connect(ui_->BitBtnOk, &QPushButton::clicked, this, [this] { BitBtnOkClick(); });
    connect(ui_->BitBtnCancel, &QPushButton::clicked, this, [this] { reject(); });
    connect(ui_->lvSpectra, &QTreeWidget::itemSelectionChanged, this, [this] { ShowSize(); });
    for (QCheckBox* box : {ui_->cbHeader, ui_->cbContrast, ui_->cbLabel}) {
        connect(box, &QCheckBox::toggled, this, [this] { ShowSize(); });
    }
}

void TSpectraExportForm::FormCreate() {
    if (manager_ == nullptr) {
        return;
    }
    ui_->BitBtnOk->setEnabled(true);
    list_->Clear();
    const SpectMacroResult* main = manager_->GetMain();
    for (SpectMacroResult* analysis : *manager_) {
        // Bins of another width would give lines of another width.
        if (main != nullptr && analysis->GetFFTResolution() == main->GetFFTResolution()) {
            const int contrast = analysis->GetMacro().GetContrastValue();
            ui_->lvSpectra->SelectRow(list_->Add(*analysis, {QString::number(contrast)}));
        }
    }
    ShowSize();
}

SpectraExport TSpectraExportForm::Chosen() const {
    SpectraExport chosen;
    chosen.columns = manager_->Size() > 0 ? *manager_->begin() : nullptr;
    for (int i = 0; i < ui_->lvSpectra->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* row = ui_->lvSpectra->topLevelItem(i);
        if (const SpectMacroResult* analysis = list_->Of(row); analysis != nullptr && row->isSelected()) {
            chosen.analyses.push_back(analysis);
        }
    }
    chosen.header = ui_->cbHeader->isChecked();
    chosen.contrast = ui_->cbContrast->isChecked();
    chosen.name = ui_->cbLabel->isChecked();
    return chosen;
}

void TSpectraExportForm::ShowSize() {
    if (manager_ == nullptr) {
        return;
    }
    const SpectraExport chosen = Chosen();
    const QString size = QLocale().formattedDataSize(static_cast<qint64>(EstimateSpectraExport(chosen)), 0,
                                                     QLocale::DataSizeSIFormat);
    std::string text =
        orvanta::side_bar::FillIn(ExportText("Size", "%d of %d spectra selected, about %s of text"),
                                  {std::to_string(chosen.analyses.size()),
                                   std::to_string(ui_->lvSpectra->topLevelItemCount()), size.toStdString()});
    const SPECT::Entity::Type entity = manager_->GetMeasEntity();
    if (entity == SPECT::Entity::Type::Coherence || entity == SPECT::Entity::Type::Phase) {
        text += '\n' + ExportText("NoValues",
                                  "Single epochs have neither coherence nor phase: every value will be n/a.");
    }
    ui_->lbSize->setText(QString::fromStdString(text));
}

void TSpectraExportForm::BitBtnOkClick() {
    if (manager_ == nullptr) {
        return;
    }
    const auto path = owl::CurrentModalGateway().AskFileToSave(GetHandle(), sdSpectra);
    if (!path) {
        return;
    }
    const GenericGUI* gui = manager_->GetGUI();
    try {
        const auto progress =
            gui == nullptr ? nullptr : gui->CreateProgress(ExportText("Progress", "Exporting Spectra..."));
        if (!WriteSpectraExport(*path, Chosen(), progress.get())) {
            return;
        }
    } catch (const ExportNotOpened& failure) {
        qInfo("Spectra export: %s", failure.what());
        return;
    } catch (const std::exception& failure) {
        qInfo("Spectra export: %s", failure.what());
        if (gui != nullptr) {
            gui->ShowError(failure.what());
        }
        return;
    }
    accept();
}
