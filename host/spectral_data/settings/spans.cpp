// SPDX-License-Identifier: GPL-3.0-or-later
// The stretches of time that a macro selects.
#include "host/spectral_data/settings/epochs.h"
#include "host/spectral_data/settings/macro_limits.h"

#include <algorithm>

namespace orvanta::spectral {

namespace {

using Spans = std::vector<TimeSpan>;
using Labels = std::set<std::string>;

// A rejected instant is cut out with this length: at most a sample up to 100 kHz, and longer than the
// rounding of the timeline.
constexpr double kInstantSeconds = 1e-5;

bool EarlierBegin(const TimeSpan& a, const TimeSpan& b) {
    return a.begin_s < b.begin_s;
}

TimeSpan SpanOf(const EventRecord& event) {
    return {event.Interval.GetBeginPtr()->Seconds(), event.Interval.GetEndPtr()->Seconds()};
}

/// Sorted, with spans that touch or overlap made one.
Spans United(Spans spans) {
    std::sort(spans.begin(), spans.end(), EarlierBegin);
    Spans united;
    for (const TimeSpan& span : spans) {
        if (!united.empty() && span.begin_s <= united.back().end_s) {
            united.back().end_s = std::max(united.back().end_s, span.end_s);
        } else {
            united.push_back(span);
        }
    }
    return united;
}

Spans StateSpans(const Labels& labels, const EventsManager& events) {
    Spans spans;
    for (const EventRecord& event : events.GetEvents()) {
        if (event.Class == EventClass::State && labels.contains(event.Label)) {
            spans.push_back(SpanOf(event));
        }
    }
    return United(std::move(spans));
}

Spans SpotSpans(const SpectraMacro& macro, const EventsManager& events) {
    constexpr std::int64_t kNanosecondsPerMS = 1'000'000;
    const Labels labels = macro.GetAcceptSpotList();
    const std::uint32_t steps = std::clamp(macro.SpotStepCount, 1u, kMaxSpotSteps);
    const std::int64_t increment = std::clamp(macro.SpotStepInc, 1u, kMaxSpotStepMS);
    Spans spans;
    for (const EventRecord& event : events.GetEvents()) {
        if (event.Class != EventClass::Spot || !labels.contains(event.Label)) {
            continue;
        }
        for (std::uint32_t step = 0; step < steps; ++step) {
            const std::int64_t offset = macro.GetPreTriggerMS() + step * increment;
            const std::int64_t begin =
                event.Interval.GetBeginPtr()->Nanoseconds() + offset * kNanosecondsPerMS;
            const std::int64_t end = begin + macro.GetTrgDurationMS() * kNanosecondsPerMS;
            spans.push_back({XTime::FromNanoseconds(begin).Seconds(), XTime::FromNanoseconds(end).Seconds()});
        }
    }
    std::stable_sort(spans.begin(), spans.end(), EarlierBegin);
    return spans;
}

Spans SelectedSpans(const SpectraMacro& macro, const EventsManager& events, double duration_s,
                    double cursor_s) {
    switch (macro.GetTimeIntervalSelectMode()) {
    case SpectraMacro::TimeIntervalSelectMode::ByDuration: {
        const double begin = std::max(0.0, cursor_s);
        return {{begin, begin + macro.GetFixedDurationSec()}};
    }
    case SpectraMacro::TimeIntervalSelectMode::ByStateEvents:
        return StateSpans(macro.GetAcceptStateList(), events);
    case SpectraMacro::TimeIntervalSelectMode::BySpotEvents:
        return SpotSpans(macro, events);
    case SpectraMacro::TimeIntervalSelectMode::AllRecording:
        break;
    }
    return {{0, duration_s}};
}

Spans RejectedSpans(const Labels& labels, const EventsManager& events) {
    Spans spans;
    for (const EventRecord& event : events.GetEvents()) {
        if (labels.contains(event.Label)) {
            TimeSpan span = SpanOf(event);
            span.end_s = std::max(span.end_s, span.begin_s + kInstantSeconds);
            spans.push_back(span);
        }
    }
    return United(std::move(spans));
}

/// Appends what is left of \p span. \p rejected ascends and does not overlap.
void AppendWithout(const Spans& rejected, TimeSpan span, Spans& result) {
    auto cut = std::partition_point(rejected.begin(), rejected.end(),
                                    [&](const TimeSpan& r) { return r.end_s <= span.begin_s; });
    for (; cut != rejected.end() && cut->begin_s < span.end_s; ++cut) {
        if (span.begin_s < cut->begin_s) {
            result.push_back({span.begin_s, cut->begin_s, cut->begin_s});
        }
        span.begin_s = cut->end_s;
    }
    if (span.begin_s < span.end_s) {
        span.limit_s = cut == rejected.end() ? span.limit_s : cut->begin_s;
        result.push_back(span);
    }
}

} // namespace

std::vector<TimeSpan> GetProcessedSpans(const SpectraMacro& macro, const EventsManager& events,
                                        double duration_s, double cursor_s) {
    const Spans rejected = RejectedSpans(macro.GetRejectEventsList(), events);
    Spans spans;
    for (const TimeSpan& selected : SelectedSpans(macro, events, duration_s, cursor_s)) {
        const TimeSpan inside = {std::max(0.0, selected.begin_s), std::min(duration_s, selected.end_s)};
        AppendWithout(rejected, inside, spans);
    }
    // What is left of overlapping segments interleaves.
    std::stable_sort(spans.begin(), spans.end(), EarlierBegin);
    return spans;
}

} // namespace orvanta::spectral
