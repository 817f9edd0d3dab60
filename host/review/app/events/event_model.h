// SPDX-License-Identifier: GPL-3.0-or-later
// The events of a recording as rows of a list.
#pragma once

#include "host/review/app/events/event_editor.h"
#include "host/review/app/events/event_rows.h"

#include <QAbstractTableModel>

#include <optional>

namespace orvanta::review {

/// Texts are made when they are shown, so that a list of 100,000 events opens at once.
class EventModel final : public QAbstractTableModel {
public:
    /// \param editor must outlive this
    explicit EventModel(const EventEditor& editor);

    /// Lists the events anew; rows of old are gone.
    void Refresh();
    void SetFilter(const EventFilter& filter);
    /// The place of a row's event among all events.
    std::size_t EventAt(int row) const;
    /// The row of an event; none when it is not listed.
    std::optional<int> RowOf(std::size_t event) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

private:
    const EventEditor& editor_;
    EventFilter filter_;
    EventOrder order_;
    std::vector<std::size_t> rows_;
};

} // namespace orvanta::review
