// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/events/annotation_events.h"

#include <algorithm>
#include <cmath>

namespace orvanta::signal {

namespace {

constexpr double kFarthestSeconds = 9.2e9;

/// Also false for what is not a number.
bool InReach(double seconds) {
    return std::abs(seconds) < kFarthestSeconds;
}

} // namespace

std::vector<EventRecord> EventsOf(const std::vector<Annotation>& annotations,
                                  std::vector<std::string>& repairs) {
    std::size_t leftOut = 0;
    std::vector<EventRecord> records;
    for (const Annotation& annotation : annotations) {
        const double duration = annotation.duration_s.value_or(0);
        if (annotation.text.empty() || !InReach(annotation.onset_s) || !InReach(duration) ||
            !InReach(annotation.onset_s + duration)) {
            ++leftOut;
            continue;
        }
        const XTime begin = XTime::FromSeconds(annotation.onset_s);
        const XTime end = XTime::FromSeconds(annotation.onset_s + std::max(0.0, duration));
        const EventClass eventClass = begin < end ? EventClass::State : EventClass::Spot;
        const EventSource source = annotation.line == 0 ? EventSource::Recording : EventSource::Table;
        records.push_back({annotation.text, eventClass, {begin, end}, source, annotation.line});
    }
    std::stable_sort(records.begin(), records.end(), [](const EventRecord& a, const EventRecord& b) {
        return *a.Interval.GetBeginPtr() < *b.Interval.GetBeginPtr();
    });
    if (leftOut > 0) {
        repairs.push_back(std::to_string(leftOut) +
                          " annotations without a text or a usable time were left out");
    }
    return records;
}

} // namespace orvanta::signal
