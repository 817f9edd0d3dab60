// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/report_list.h"

#include <QHeaderView>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include <algorithm>

namespace owl {

namespace {

constexpr int kDataRole = Qt::UserRole;
constexpr int kLastRole = Qt::UserRole + 1;

/// Ordered by caption, case ignored; captions that differ in case only, by their characters. Those that are
/// put last follow in the same order.
class Row final : public QTreeWidgetItem {
public:
    explicit Row(const QStringList& texts) : QTreeWidgetItem(texts) {}

    bool operator<(const QTreeWidgetItem& other) const override {
        const bool last = data(0, kLastRole).toBool();
        if (last != other.data(0, kLastRole).toBool()) {
            return !last;
        }
        const int order = QString::compare(text(0), other.text(0), Qt::CaseInsensitive);
        return order != 0 ? order < 0 : text(0) < other.text(0);
    }
};

/// Leaves a little air above and below the text.
class RowPainter final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 4);
    }
};

} // namespace

ReportList::ReportList(QWidget* parent) : QTreeWidget(parent) {
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setItemDelegate(new RowPainter(this));
    setAllColumnsShowFocus(true);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(true);
}

void ReportList::StretchCaptions() {
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(0, QHeaderView::Stretch);
    headerItem()->setTextAlignment(0, Qt::AlignLeft | Qt::AlignVCenter);
    for (int column = 1; column < columnCount(); ++column) {
        headerItem()->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
        setColumnWidth(column, std::max(columnWidth(column), header()->sectionSizeHint(column)));
    }
}

void ReportList::SortByCaption() {
    sortByColumn(0, Qt::AscendingOrder);
    setSortingEnabled(true);
    header()->setSortIndicatorShown(false);
    header()->setSectionsClickable(false);
}

void ReportList::PutLast(QTreeWidgetItem* row) {
    row->setData(0, kLastRole, true);
}

void ReportList::SetMultiSelect(bool multiple) {
    setSelectionMode(multiple ? ExtendedSelection : SingleSelection);
}

QTreeWidgetItem* ReportList::AddRow(const QStringList& texts, const void* payload) {
    auto* row = new Row(texts);
    row->setData(0, kDataRole, QVariant::fromValue(const_cast<void*>(payload)));
    for (int column = 1; column < texts.size(); ++column) {
        row->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    }
    addTopLevelItem(row);
    return row;
}

const void* ReportList::DataOf(const QTreeWidgetItem* row) const {
    return row != nullptr ? row->data(0, kDataRole).value<void*>() : nullptr;
}

void ReportList::SelectRow(QTreeWidgetItem* row, bool selected) {
    if (selected && selectionMode() == SingleSelection) {
        // One change, so that nobody is told of a list without a selection. Keys go on from this row.
        selectionModel()->setCurrentIndex(indexFromItem(row),
                                          QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    } else {
        row->setSelected(selected);
    }
}

void ReportList::ClearRows() {
    const QSignalBlocker silent(this);
    clear();
}

void ReportList::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    QTreeWidget::drawRow(painter, option, index);
    QColor line = option.palette.color(QPalette::Text);
    line.setAlphaF(0.15F);
    painter->save();
    painter->setPen(line);
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    for (int column = 0; column < columnCount(); ++column) {
        const int x = columnViewportPosition(column) + columnWidth(column) - 1;
        painter->drawLine(x, option.rect.top(), x, option.rect.bottom());
    }
    painter->restore();
}

} // namespace owl
