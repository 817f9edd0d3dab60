// SPDX-License-Identifier: GPL-3.0-or-later
// All that the painters of the trace view are told.
#pragma once

#include "host/review/app/traces/trace_colors.h"
#include "host/review/app/traces/trace_curves.h"
#include "host/review/app/traces/trace_view.h"
#include "host/signal_base/recording_data.h"
#include "host/toolkit/dc.h"

#include <optional>
#include <string>
#include <vector>

namespace orvanta::review {

/// One line on the page.
struct LineInput {
    const TraceChannel* channel = nullptr;
    const TraceLine* data = nullptr; ///< null when there are no values
    TraceScaling scaling;
    bool selected = false;
};

/// An event as it is drawn.
struct EventInput {
    const EventRecord* event = nullptr;
    std::size_t index = 0; ///< in the editor
    bool own = false;
    bool selected = false;
};

/// A stretch in which nothing was recorded, seconds.
struct TraceGap {
    double begin = 0;
    double end = 0;

    bool operator==(const TraceGap&) const = default;
};

struct PageInput {
    TraceLayout layout;
    TraceColors colors;
    owl::TFont font;
    double lineWidth = 1; ///< logical pixels
    std::optional<signal::StartTime> startTime;
    double total = 0;             ///< seconds of the whole recording
    double millimetre = 3.78;     ///< pixels
    std::vector<LineInput> lines; ///< those on the page, from the top
    std::vector<EventInput> events;
    std::vector<Shade> shades;
    std::vector<TraceGap> gaps;
};

/// What is seen of the whole recording.
struct OverviewInput {
    std::vector<float> activity; ///< by column, 0 to 1; below 0 where it is not known yet
    double progress = 1;         ///< share of the recording that was looked at
};

} // namespace orvanta::review
