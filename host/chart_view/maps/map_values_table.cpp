// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/map_values_table.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/qt_painting.h"
#include "host/toolkit/services.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>

#include <set>

namespace orvanta::chart {

class MapValuesTable::Model final : public QAbstractTableModel {
public:
    Model(QObject* parent, const std::vector<ElectInfo>& electrodes, const GenericPlatform& platform)
        : QAbstractTableModel(parent), electrodes_(electrodes), platform_(platform) {}

    /// \return whether there is another number of maps
    bool SetMaps(std::span<const MapContent> maps) {
        const bool other = maps.size() != maps_.size();
        if (other) {
            beginResetModel();
        }
        maps_.assign(maps.begin(), maps.end());
        if (other) {
            endResetModel();
        } else if (!maps_.empty() && !electrodes_.empty()) {
            Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
            Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
        }
        return other;
    }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(electrodes_.size());
    }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(maps_.size());
    }
    QVariant data(const QModelIndex& at, int role) const override {
        if (role == Qt::TextAlignmentRole) {
            return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
        }
        if (role != Qt::DisplayRole) {
            return {};
        }
        const std::vector<double>& values = maps_[static_cast<std::size_t>(at.column())].values;
        const auto row = static_cast<std::size_t>(at.row());
        return row < values.size() ? owl::ToQString(ValueText(platform_, values[row])) : QString();
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (role != Qt::DisplayRole && role != Qt::ToolTipRole) {
            return {};
        }
        const auto at = static_cast<std::size_t>(section);
        return owl::ToQString(orientation == Qt::Horizontal ? maps_[at].title : electrodes_[at].Name);
    }

private:
    std::vector<ElectInfo> electrodes_;
    const GenericPlatform& platform_;
    std::vector<MapContent> maps_;
};

MapValuesTable::MapValuesTable(const std::vector<ElectInfo>& electrodes, const GenericPlatform& platform)
    : model_(new Model(this, electrodes, platform)) {
    setModel(model_);
    setObjectName("mapValues");
    setAccessibleName(owl::ToQString(
        owl::TextOr(PModule::Named("Orvanta"), "MAP_MENU", "tableName", "Values of the maps")));
    setTabKeyNavigation(false); // Tab leaves the table
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTextElideMode(Qt::ElideMiddle);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setMinimumSectionSize(fontMetrics().horizontalAdvance("-0000000.000") + 12);
}

QSize MapValuesTable::sizeHint() const {
    constexpr int kColumnsSeen = 3;
    return {verticalHeader()->sizeHint().width() + kColumnsSeen * horizontalHeader()->minimumSectionSize() +
                20,
            QTableView::sizeHint().height()};
}

void MapValuesTable::SetMaps(std::span<const MapContent> maps) {
    if (model_->SetMaps(maps)) {
        resizeColumnsToContents();
    }
}

void MapValuesTable::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        CopySelection();
        return;
    }
    QTableView::keyPressEvent(event);
}

void MapValuesTable::CopySelection() const {
    QModelIndexList selected = selectionModel()->selectedIndexes();
    if (selected.isEmpty()) {
        return;
    }
    std::set<int> rows;
    std::set<int> columns;
    for (const QModelIndex& at : selected) {
        rows.insert(at.row());
        columns.insert(at.column());
    }
    QString table;
    for (const int column : columns) {
        table += "\t" + model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    }
    table += "\r\n";
    for (const int row : rows) {
        table += model_->headerData(row, Qt::Vertical, Qt::DisplayRole).toString();
        for (const int column : columns) {
            const QModelIndex at = model_->index(row, column);
            table += "\t" + (selectionModel()->isSelected(at) ? at.data().toString() : QString());
        }
        table += "\r\n";
    }
    owl::CurrentServices().clipboard->SetText(table.toStdString());
}

} // namespace orvanta::chart
