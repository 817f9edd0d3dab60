// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/event_rows.h"

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

} // namespace orvanta::side_bar
