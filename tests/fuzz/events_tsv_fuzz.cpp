// SPDX-License-Identifier: GPL-3.0-or-later
// Any text is an events table or refused with an error; what was read keeps what the parser promises.
#include "host/signal_base/events_tsv/events_table.h"

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
    return 0;
}
