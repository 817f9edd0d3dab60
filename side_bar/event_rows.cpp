// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/event_rows.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <unordered_map>

namespace orvanta::side_bar {

namespace {

/// Intervals of all state events by label, from one pass: one per type would take kinds times events.
std::unordered_map<std::string_view, XTimeList> StateIntervals(const EventsManager& events) {
    std::unordered_map<std::string_view, XTimeList> intervals;
    for (const EventRecord& event : events.GetEvents()) {
        if (event.Class == EventClass::State) {
            intervals[event.Label].push_back(event.Interval);
        }
    }
    return intervals;
}

} // namespace

std::uint32_t WholeSeconds(const XTimeList& intervals, std::uint32_t rate) {
    if (rate == 0) {
        return 0;
    }
    std::uint32_t sum = 0;
    for (const XTimeItem& item : intervals) {
        sum += item.Interval.GetDuration(rate);
    }
    return sum / rate;
}

std::vector<EventRow> EventRowsOf(const EventsManager& events, EventClass eventClass) {
    EventsCountMap counts;
    events.GetEventsCountMap(counts, eventClass, false);
    std::vector<EventRow> rows;
    rows.reserve(counts.size());
    for (const auto& [type, count] : counts) {
        rows.push_back({type, count});
    }
    if (eventClass == EventClass::State) {
        const auto intervals = StateIntervals(events);
        for (EventRow& row : rows) {
            row.seconds = WholeSeconds(intervals.at(row.type.GetLabel()), events.GetEventsSR());
        }
    }
    return rows;
}

void AppendLacking(std::vector<EventRow>& rows, const std::set<std::string>& labels, EventClass eventClass) {
    for (const std::string& label : labels) {
        const bool listed = std::any_of(
            rows.begin(), rows.end(), [&label](const EventRow& row) { return row.type.GetLabel() == label; });
        if (!listed) {
            rows.push_back({XEventType(label, eventClass)});
        }
    }
}

std::vector<EventRow> RejectRowsOf(const std::vector<EventRow>& states, const std::vector<EventRow>& spots,
                                   const std::set<std::string>& labels) {
    std::vector<EventRow> rows = states;
    // A label of both classes is one choice: it excludes the events of either.
    std::copy_if(spots.begin(), spots.end(), std::back_inserter(rows), [&](const EventRow& spot) {
        const bool isState = std::any_of(states.begin(), states.end(), [&spot](const EventRow& state) {
            return state.type.GetLabel() == spot.type.GetLabel();
        });
        return !isState && labels.contains(spot.type.GetLabel());
    });
    AppendLacking(rows, labels, EventClass::State);
    return rows;
}

} // namespace orvanta::side_bar
