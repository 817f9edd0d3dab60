// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/events/event_rows.h"

#include "host/review/app/events/event_texts.h"
#include "host/signal_base/events/event_duration.h"

#include <algorithm>
#include <map>
#include <string>

namespace orvanta::review {

namespace {

/// A number for every label: its place in the alphabet. Recordings have few labels and many events.
std::map<std::string, int> LabelRanks(const std::vector<EventRecord>& events, const QString& text) {
    std::map<std::string, int> ranks;
    for (const EventRecord& event : events) {
        ranks.emplace(event.Label, 0);
    }
    std::erase_if(ranks, [&](const auto& rank) {
        return !QString::fromStdString(rank.first).contains(text, Qt::CaseInsensitive);
    });
    std::vector<std::pair<QString, int*>> labels;
    labels.reserve(ranks.size());
    for (auto& [label, rank] : ranks) {
        labels.emplace_back(QString::fromStdString(label), &rank);
    }
    const QCollator alphabet = Alphabet();
    std::stable_sort(labels.begin(), labels.end(),
                     [&](const auto& a, const auto& b) { return alphabet(a.first, b.first); });
    for (std::size_t i = 0; i < labels.size(); ++i) {
        *labels[i].second = static_cast<int>(i);
    }
    return ranks;
}

bool IsOf(EventKind kind, const EventRecord& event) {
    switch (kind) {
    case EventKind::Spot:
        return event.Class == EventClass::Spot;
    case EventKind::State:
        return event.Class == EventClass::State;
    case EventKind::Own:
        return event.Source == EventSource::Table;
    case EventKind::All:
        break;
    }
    return true;
}

/// What rows are ordered by.
std::int64_t KeyOf(const EventRecord& event, EventColumn column, int labelRank) {
    switch (column) {
    case EventColumn::Duration:
        return signal::DurationOf(event).Nanoseconds();
    case EventColumn::Label:
        return labelRank;
    case EventColumn::Class:
        return static_cast<std::int64_t>(event.Class);
    case EventColumn::Source:
        return static_cast<std::int64_t>(event.Source);
    case EventColumn::Clock:
    case EventColumn::Seconds:
        break;
    }
    return event.Interval.GetBeginPtr()->Nanoseconds();
}

} // namespace

std::vector<std::size_t> RowsOfEvents(const std::vector<EventRecord>& events, const EventFilter& filter,
                                      const EventOrder& order) {
    const std::map<std::string, int> ranks = LabelRanks(events, filter.text);
    std::vector<std::pair<std::int64_t, std::size_t>> keyed;
    for (std::size_t place = 0; place < events.size(); ++place) {
        const auto rank = ranks.find(events[place].Label);
        if (rank != ranks.end() && IsOf(filter.kind, events[place])) {
            keyed.emplace_back(KeyOf(events[place], order.column, rank->second), place);
        }
    }
    std::stable_sort(keyed.begin(), keyed.end(), [&](const auto& a, const auto& b) {
        return order.descending ? b.first < a.first : a.first < b.first;
    });
    std::vector<std::size_t> rows;
    rows.reserve(keyed.size());
    for (const auto& [key, place] : keyed) {
        rows.push_back(place);
    }
    return rows;
}

} // namespace orvanta::review
