// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/events/event_model.h"

#include "host/review/app/events/event_texts.h"
#include "host/signal_base/events/event_duration.h"

#include <algorithm>

namespace orvanta::review {

namespace {

QString TextOf(const EventRecord& event, EventColumn column, const EEGFileInfoType& recording) {
    const XTime begin = *event.Interval.GetBeginPtr();
    switch (column) {
    case EventColumn::Clock:
        return ClockText(recording, begin);
    case EventColumn::Seconds:
        return SecondsText(begin);
    case EventColumn::Duration:
        return event.Class == EventClass::Spot ? QString() : SecondsText(signal::DurationOf(event));
    case EventColumn::Label:
        return QString::fromStdString(event.Label);
    case EventColumn::Class:
        return ClassText(event.Class);
    case EventColumn::Source:
        return SourceText(event.Source);
    }
    return {};
}

QString TitleOf(EventColumn column) {
    switch (column) {
    case EventColumn::Clock:
        return EventText("clock", "Time");
    case EventColumn::Seconds:
        return EventText("seconds", "Seconds");
    case EventColumn::Duration:
        return EventText("duration", "Duration (s)");
    case EventColumn::Label:
        return EventText("label", "Label");
    case EventColumn::Class:
        return EventText("class", "Kind");
    case EventColumn::Source:
        return EventText("source", "Source");
    }
    return {};
}

bool IsNumber(EventColumn column) {
    return column == EventColumn::Clock || column == EventColumn::Seconds || column == EventColumn::Duration;
}

} // namespace

EventModel::EventModel(const EventEditor& editor)
    : editor_(editor), rows_(RowsOfEvents(editor.Events(), filter_, order_)) {}

void EventModel::Refresh() {
    beginResetModel();
    rows_ = RowsOfEvents(editor_.Events(), filter_, order_);
    endResetModel();
}

void EventModel::SetFilter(const EventFilter& filter) {
    filter_ = filter;
    Refresh();
}

std::size_t EventModel::EventAt(int row) const {
    return rows_.at(static_cast<std::size_t>(row));
}

std::optional<int> EventModel::RowOf(std::size_t event) const {
    const auto row = std::find(rows_.begin(), rows_.end(), event);
    return row == rows_.end() ? std::nullopt : std::optional(static_cast<int>(row - rows_.begin()));
}

int EventModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int EventModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kEventColumns;
}

QVariant EventModel::data(const QModelIndex& index, int role) const {
    // Until it is told of a change, the list may know more events than there are.
    if (!index.isValid() || EventAt(index.row()) >= editor_.Events().size()) {
        return {};
    }
    const auto column = static_cast<EventColumn>(index.column());
    if (role == Qt::TextAlignmentRole && IsNumber(column)) {
        return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    }
    if (role == Qt::DisplayRole || (role == Qt::ToolTipRole && column == EventColumn::Label)) {
        return TextOf(editor_.Events()[EventAt(index.row())], column, editor_.GetRecording());
    }
    return {};
}

QVariant EventModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const auto column = static_cast<EventColumn>(section);
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole) {
        return TitleOf(column);
    }
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole) {
        return QVariant::fromValue(
            Qt::Alignment((IsNumber(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter));
    }
    return {};
}

void EventModel::sort(int column, Qt::SortOrder order) {
    order_ = {static_cast<EventColumn>(std::clamp(column, 0, kEventColumns - 1)),
              order == Qt::DescendingOrder};
    Refresh();
}

} // namespace orvanta::review
