// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/event_rows.h"

namespace orvanta::side_bar {

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
    for (const auto& [type, count] : counts) {
        EventRow row{type, count};
        if (eventClass == EventClass::State) {
            XTimeList intervals;
            events.GetTimeListFromType(type, intervals);
            row.seconds = WholeSeconds(intervals, events.GetEventsSR());
        }
        rows.push_back(row);
    }
    return rows;
}

} // namespace orvanta::side_bar
