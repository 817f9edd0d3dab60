// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/regression_results.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/icon.h"
#include "host/toolkit/message_module.h"
#include "side_bar/regression_rows.h"
#include "side_bar/texts.h"
#include "spectra_contract/bci_regression.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/sensor.h"
#include "ui_regression_results.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <exception>
#include <vector>

using orvanta::side_bar::FillIn;
namespace side_bar = orvanta::side_bar;

namespace {

constexpr int kColumnWidth = 75;

/// A row that reads its texts from its result when they are shown: a grid has many rows, few of them in
/// sight.
class Row final : public QTreeWidgetItem {
public:
    Row(const BCIReg& result, const TFormBCIResults& form) : result_(result), form_(form) {}

    const BCIReg& Result() const { return result_; }

    QVariant data(int column, int role) const override {
        switch (role) {
        case Qt::DisplayRole:
            return side_bar::RegressionText(result_, column);
        case Qt::TextAlignmentRole:
            return static_cast<int>(Qt::AlignVCenter |
                                    (column == side_bar::kSensor ? Qt::AlignLeft : Qt::AlignRight));
        default:
            return QTreeWidgetItem::data(column, role);
        }
    }
    bool operator<(const QTreeWidgetItem& other) const override {
        const int place = form_.lvBCIResultsCompare(result_, static_cast<const Row&>(other).result_);
        // The list turns the comparison round when it sorts downwards.
        return treeWidget()->header()->sortIndicatorOrder() == Qt::AscendingOrder ? place < 0 : place > 0;
    }

private:
    const BCIReg& result_;
    const TFormBCIResults& form_;
};

const BCIReg& ResultOf(const QTreeWidgetItem& item) {
    return static_cast<const Row&>(item).Result();
}

std::string Numeral(double value) {
    return QLocale().toString(value).toStdString();
}

/// The result with the largest |R|; null when none has an R.
const BCIReg* StrongestOf(const std::list<BCIReg>& results) {
    const auto size = [](const BCIReg& row) { return std::isnan(row.R) ? -1 : std::abs(row.R); };
    const auto strongest = std::ranges::max_element(results, {}, size);
    return strongest != results.end() && size(*strongest) >= 0 ? &*strongest : nullptr;
}

std::string ResultsText(const char* key, const char* builtIn) {
    return owl::TextOr(PModule::Named("Orvanta"), "TFormBCIResults", key, builtIn);
}

} // namespace

TFormBCIResults::TFormBCIResults(HWND owner, const std::list<BCIReg>& results,
                                 const std::list<SpectMacroResult*>& analyses,
                                 const GenericPlatform* platform)
    : TForm(owner), ui_(std::make_unique<Ui::TFormBCIResults>()), results_(results), analyses_(analyses),
      platform_(platform) {
    ui_->setupUi(this);
    owl::TranslateForm(*this, PModule::Named("Orvanta"), "TFormBCIResults");
    SetCancelButton(ui_->BitBtn1);
    ui_->BitBtnSave->setIcon(owl::IconOf(QStringLiteral("save_as")));
    ui_->BitBtn2->setIcon(owl::IconOf(QStringLiteral("save_spectra")));
    ui_->BitBtn1->setIcon(owl::IconOf(QStringLiteral("cancel")));
    connect(ui_->BitBtnSave, &QPushButton::clicked, this, [this] { BitBtnSaveClick(); });
    connect(ui_->BitBtn2, &QPushButton::clicked, this, [this] { BitBtn2Click(); });
    connect(ui_->BitBtn1, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui_->cbFillGrid, &QCheckBox::toggled, this, [this] { cbFillGridClick(); });
    SetUpList();
    FillList();
    Select(StrongestOf(results_));
}

TFormBCIResults::~TFormBCIResults() = default;

void TFormBCIResults::SetUpList() {
    owl::ReportList& list = *ui_->lvBCIResults;
    QHeaderView& header = *list.header();
    for (int column = 0; column < side_bar::kRegressionColumns; ++column) {
        list.setColumnWidth(column, kColumnWidth);
        list.headerItem()->setTextAlignment(
            column, Qt::AlignVCenter | (column == side_bar::kSensor ? Qt::AlignLeft : Qt::AlignRight));
    }
    header.setSectionsClickable(true);
    header.setSortIndicatorShown(true);
    connect(&header, &QHeaderView::sectionClicked, this, &TFormBCIResults::lvBCIResultsColumnClick);
    connect(&list, &QTreeWidget::itemSelectionChanged, this, &TFormBCIResults::lvBCIResultsSelectItem);
    // The columns in full, the rest for the chart.
    const int scrollBar = list.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const int columns = side_bar::kRegressionColumns * kColumnWidth + scrollBar + 2 * list.frameWidth();
    ui_->splitter->setSizes({columns, width() - columns});
    ui_->splitter->setStretchFactor(0, 0);
    ui_->splitter->setStretchFactor(1, 1);
}

void TFormBCIResults::FillList() {
    QList<QTreeWidgetItem*> rows;
    for (const BCIReg& result : results_) {
        if (ui_->cbFillGrid->isChecked() || side_bar::StandsOut(result)) {
            rows << new Row(result, *this);
        }
    }
    ui_->lvBCIResults->ClearRows();
    ui_->lvBCIResults->addTopLevelItems(rows);
    SortRows();
    TellCount();
}

void TFormBCIResults::SortRows() {
    ui_->lvBCIResults->sortByColumn(sortColumn_, sortOrder_);
}

void TFormBCIResults::TellCount() {
    const std::string all = Numeral(static_cast<double>(results_.size()));
    const std::string shown = Numeral(ui_->lvBCIResults->topLevelItemCount());
    const std::string text = ui_->cbFillGrid->isChecked()
                                 ? FillIn(ResultsText("All", "All %s pairs"), {all})
                                 : FillIn(ResultsText("Shown", "%s of %s pairs, |R| ≥ %s"),
                                          {shown, all, Numeral(side_bar::kCorrelationLimit)});
    ui_->LabelShown->setText(QString::fromStdString(text));
}

const BCIReg* TFormBCIResults::Selected() const {
    const QList<QTreeWidgetItem*> rows = ui_->lvBCIResults->selectedItems();
    return rows.isEmpty() ? nullptr : &ResultOf(*rows.first());
}

void TFormBCIResults::Select(const BCIReg* row) {
    owl::ReportList& list = *ui_->lvBCIResults;
    for (int i = 0; i < list.topLevelItemCount(); ++i) {
        if (&ResultOf(*list.topLevelItem(i)) == row) {
            list.setCurrentItem(list.topLevelItem(i));
            list.scrollToItem(list.topLevelItem(i), QAbstractItemView::PositionAtCenter);
            return;
        }
    }
    lvBCIResultsSelectItem(); // a list that was cleared told no one
}

void TFormBCIResults::lvBCIResultsColumnClick(int column) {
    const bool reverse = column == sortColumn_ && sortOrder_ == Qt::AscendingOrder;
    sortOrder_ = reverse ? Qt::DescendingOrder : Qt::AscendingOrder;
    sortColumn_ = column;
    SortRows();
    ui_->lvBCIResults->scrollToTop();
}

int TFormBCIResults::lvBCIResultsCompare(const BCIReg& a, const BCIReg& b) const {
    return static_cast<int>(side_bar::StandsAbove(b, a, sortColumn_, sortOrder_)) -
           static_cast<int>(side_bar::StandsAbove(a, b, sortColumn_, sortOrder_));
}

void TFormBCIResults::lvBCIResultsSelectItem() {
    QList<QPointF> points;
    QString title;
    ui_->Chart1->ClearLine();
    if (const BCIReg* row = Selected()) {
        try {
            for (const BCIPoint& point : GetBCIPoints(analyses_, *row)) {
                points << QPointF(point.LogPower, point.Contrast);
            }
            ui_->Chart1->SetLine(row->K, row->M);
        } catch (const std::exception& error) {
            owl::CurrentModalGateway().ShowMessage(
                GetHandle(),
                ResultsText("NotPlotted", "The epochs of this pair cannot be plotted.\n\n") + error.what(),
                side_bar::MacroText("ERROR", "Error"), owl::kMbOk + owl::kMbIconExclamation);
        }
        title = QString::fromStdString(FillIn(
            ResultsText("Pair", "%s at %s Hz: R = %s"),
            {row->Sensor->GetName(), side_bar::RegressionText(*row, side_bar::kFrequency).toStdString(),
             side_bar::RegressionText(*row, side_bar::kR).toStdString()}));
    }
    ui_->Chart1->SetPoints(points);
    ui_->Chart1->SetTitles(title, QString::fromStdString(ResultsText("Power", "log10 power [µV²/Hz]")),
                           QString::fromStdString(ResultsText("Contrast", "Contrast value")));
}

void TFormBCIResults::cbFillGridClick() {
    const BCIReg* selected = Selected();
    FillList();
    Select(selected);
}

void TFormBCIResults::Save(const owl::FileQuestion& question,
                           const std::function<void(const std::string&)>& write) {
    owl::ModalGateway& gateway = owl::CurrentModalGateway();
    const auto path = gateway.AskFileToSave(GetHandle(), question);
    if (!path) {
        return;
    }
    try {
        write(*path);
    } catch (const std::exception& error) {
        gateway.ShowMessage(
            GetHandle(),
            ResultsText("NotSaved", "The file was not saved. The results are still here.\n\n") + error.what(),
            side_bar::MacroText("ERROR", "Error"), owl::kMbOk + owl::kMbIconExclamation);
    }
}

void TFormBCIResults::BitBtnSaveClick() {
    Save(sdBCIResults, [this](const std::string& path) { SaveBCIRegressions(path, results_); });
}

void TFormBCIResults::BitBtn2Click() {
    Save(sdFullSpectra, [this](const std::string& path) {
        std::unique_ptr<GenericProgress> progress;
        if (platform_ != nullptr) {
            const std::string text = ResultsText("Saving", "Saving the spectra");
            progress.reset(platform_->CreateProgress(text.c_str(), MSWindow(GetHandle())));
        }
        SaveBCIFullSpectra(path, results_, analyses_, progress.get());
    });
}
