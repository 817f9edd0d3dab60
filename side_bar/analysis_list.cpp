// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/analysis_list.h"

#include "host/toolkit/qt_painting.h"
#include "host/toolkit/window.h"
#include "spectra_contract/spectra_mgr.h"

#include <QPainter>
#include <QStyledItemDelegate>
#include <QTextDocument>

#include <algorithm>

namespace orvanta::side_bar {

namespace {

/// The analysis that a row of the list carries when the manager still has it, else null.
SpectMacroResult* AnalysisOf(const owl::ReportList& list, const SpectraMgr* manager,
                             const QTreeWidgetItem* row) {
    if (manager == nullptr) {
        return nullptr;
    }
    const auto found = std::find(manager->begin(), manager->end(), list.DataOf(row));
    return found == manager->end() ? nullptr : *found;
}

/// Keeps the cell apart from a selection of a colour like its own.
void FrameInside(QPainter& painter, const QStyleOptionViewItem& option) {
    painter.save();
    painter.setPen(option.palette.color(QPalette::Base));
    painter.drawRect(option.rect.adjusted(0, 0, -2, -2));
    painter.restore();
}

/// Fills a cell with the colour of the row's analysis, from the edge of its column to that of the row,
/// selected or not: the colour is what the cell tells.
class ColorPainter final : public QStyledItemDelegate {
public:
    ColorPainter(owl::ReportList& list, const SpectraMgr* manager)
        : QStyledItemDelegate(&list), list_(list), manager_(manager) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        if (const SpectMacroResult* analysis = AnalysisOf(list_, manager_, list_.itemFromIndex(index))) {
            painter->fillRect(option.rect, owl::ToQColor(analysis->GetMacro().Color));
            if (option.state.testFlag(QStyle::State_Selected)) {
                FrameInside(*painter, option);
            }
        }
    }

private:
    const owl::ReportList& list_;
    const SpectraMgr* manager_;
};

} // namespace

AnalysisList::AnalysisList(owl::ReportList& list, const SpectraMgr* manager, int colorColumn)
    : list_(list), manager_(manager) {
    list.setTextElideMode(Qt::ElideMiddle); // names of one study begin alike
    if (colorColumn != kNoColumn) {
        list.setItemDelegateForColumn(colorColumn, new ColorPainter(list, manager));
    }
}

QTreeWidgetItem* AnalysisList::Add(SpectMacroResult& analysis, const QStringList& further) {
    const QString name = QString::fromStdString(analysis.GetName());
    QTreeWidgetItem* row =
        list_.AddRow(QStringList{name, QString::number(analysis.GetFFTCount())} + further, &analysis);
    row->setToolTip(0, Qt::convertFromPlainText(name)); // for names that are cut
    return row;
}

SpectMacroResult* AnalysisList::Of(const QTreeWidgetItem* row) const {
    return AnalysisOf(list_, manager_, row);
}

QTreeWidgetItem* AnalysisList::SelectedRow() const {
    for (int i = 0; i < list_.topLevelItemCount(); ++i) {
        if (list_.topLevelItem(i)->isSelected()) {
            return list_.topLevelItem(i);
        }
    }
    return nullptr;
}

void FocusView(HWND view) {
    if (QWidget* window = view.Widget()) {
        window->setFocus(Qt::OtherFocusReason);
    }
}

void RepaintView(HWND view, bool erase) {
    if (auto* window = dynamic_cast<owl::TWindow*>(view.Widget())) {
        window->Invalidate(erase);
    } else if (view) {
        view.Widget()->update();
    }
}

} // namespace orvanta::side_bar
