// SPDX-License-Identifier: GPL-3.0-or-later
// Any text is an events table or refused with an error; what was read keeps what the parser promises, and is
// read again after another event was written into it.
#include "host/signal_base/events_tsv/events_table.h"
#include "host/signal_base/events_tsv/events_writer.h"

#include "host/signal_base/events/annotation_events.h"
#include "host/signal_base/limited_list.h"
#include "host/signal_base/recording_error.h"
#include "host/signal_base/text_encoding.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

using namespace orvanta::signal;

namespace {

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// Adds an event to those of a table and reads the result.
void WriteAndReadAgain(std::string_view table, const std::vector<Annotation>& annotations) {
    std::vector<std::string> repairs;
    std::vector<EventRecord> events = EventsOf(annotations, repairs);
    // At the last time that a table takes, so that it comes last.
    constexpr double kLast = 1e9;
    events.push_back({"added",
                      EventClass::State,
                      {XTime::FromSeconds(kLast), XTime::FromSeconds(kLast + 1)},
                      EventSource::Table});
    std::vector<Annotation> again;
    ParseEventsTable(WriteEventsTable(table, "fuzz.tsv", events), "fuzz.tsv", again, repairs);
    Require(EventsOf(again, repairs) == events);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<Annotation> events;
    std::vector<std::string> repairs;
    try {
        ParseEventsTable({reinterpret_cast<const char*>(data), size}, "fuzz.tsv", events, repairs);
    } catch (const RecordingError&) {
        return 0;
    }
    Require(repairs.size() <= LimitedList::kLimit + 1);
    for (const Annotation& event : events) {
        Require(std::isfinite(event.onset_s) && !event.text.empty() && IsUtf8(event.text));
        Require(!event.duration_s || *event.duration_s > 0);
    }
    for (const std::string& repair : repairs) {
        Require(IsUtf8(repair));
    }
    if (size > 0) {
        WriteAndReadAgain({reinterpret_cast<const char*>(data), size}, events);
    }
    return 0;
}
