// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/event_warnings.h"

#include "host/platform/console_gui.h"
#include "host/review/cli/output.h"

#include <algorithm>
#include <iostream>
#include <set>
#include <string>
#include <vector>

namespace orvanta::cli {

namespace {

void Warn(const std::string& text) {
    platform::ConsoleGui(std::cerr, {}).ShowWarning(text);
}

std::set<std::string> LabelsOf(const EventsManager& events, EventClass eventClass) {
    EventsCountMap counts;
    events.GetEventsCountMap(counts, eventClass, false);
    std::set<std::string> labels;
    for (const auto& [type, count] : counts) {
        labels.insert(type.GetLabel());
    }
    return labels;
}

/// Processed seconds, united and in order.
std::vector<XTimeInterval> Stretches(const SpectMacroResult& analysis, EEGFileInfoType& recording) {
    XTimeList epochs;
    analysis.GetEventList(&recording, epochs, nullptr);
    std::vector<XTimeInterval> united;
    for (const XTimeItem& item : epochs) {
        if (!united.empty() && *item.Interval.GetBeginPtr() <= *united.back().GetEndPtr()) {
            united.back() = {*united.back().GetBeginPtr(),
                             std::max(*united.back().GetEndPtr(), *item.Interval.GetEndPtr())};
        } else {
            united.push_back(item.Interval);
        }
    }
    return united;
}

} // namespace

void WarnOfLabels(const SpectraMacro& macro, const EventsManager& events) {
    const std::set<std::string> states = LabelsOf(events, EventClass::State);
    const std::set<std::string> spots = LabelsOf(events, EventClass::Spot);
    const auto check = [](const std::set<std::string>& wanted, const std::set<std::string>& there,
                          const std::set<std::string>& others, const char* kind, const char* other) {
        std::string missing;
        for (const std::string& label : wanted) {
            if (!there.contains(label)) {
                missing += (missing.empty() ? "\"" : ", \"") + label + "\"" +
                           (others.contains(label) ? " (but " + std::string(other) + " of that name)" : "");
            }
        }
        if (!missing.empty()) {
            Warn("the recording has no " + std::string(kind) + " " + missing);
        }
    };
    using Mode = SpectraMacro::TimeIntervalSelectMode;
    if (macro.GetTimeIntervalSelectMode() == Mode::ByStateEvents) {
        check(macro.GetAcceptStateList(), states, spots, "state event", "spot events");
    }
    if (macro.GetTimeIntervalSelectMode() == Mode::BySpotEvents) {
        check(macro.GetAcceptSpotList(), spots, states, "spot event", "state events");
    }
    std::set<std::string> all = states;
    all.insert(spots.begin(), spots.end());
    check(macro.GetRejectEventsList(), all, {}, "event to reject", "");
}

void WarnOfSharedTime(const SpectMacroResult& main, const SpectMacroResult& secondary,
                      EEGFileInfoType& recording, const std::string& consequence) {
    double shared = 0;
    const std::vector<XTimeInterval> others = Stretches(secondary, recording);
    for (const XTimeInterval& mine : Stretches(main, recording)) {
        for (const XTimeInterval& other : others) {
            const XTime begin = std::max(*mine.GetBeginPtr(), *other.GetBeginPtr());
            const XTime end = std::min(*mine.GetEndPtr(), *other.GetEndPtr());
            shared += std::max(0.0, end.Seconds() - begin.Seconds());
        }
    }
    if (shared > 0) {
        Warn("the two analyses share " + FixedText(shared, 1) + " s of the recording; " + consequence);
    }
}

} // namespace orvanta::cli
