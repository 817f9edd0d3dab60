// SPDX-License-Identifier: GPL-3.0-or-later
// What the user sees of the traces, and how.
#pragma once

#include "host/review/app/traces/trace_group.h"
#include "host/review/app/traces/trace_store.h"

namespace orvanta::review {

inline constexpr double kShortestPage = 0.05;
inline constexpr double kLongestPage = 86400;

/// The stretch of time and of lines that is shown.
struct TraceWindow {
    double start = 0;     ///< seconds since the recording's first sample
    double duration = 10; ///< seconds
    int firstLine = 0;    ///< of the lines that are not hidden
    int lineCount = 0;    ///< on the page; 0 for all that fit
    TraceGains gains;     ///< units per millimetre

    bool operator==(const TraceWindow&) const = default;
};

struct TraceState {
    TraceWindow window;
    TraceFilter filter{0.5, 70, 0};
    bool centered = true; ///< lines without their mean on the page
    /// EEG and EOG are drawn with negative values upwards, the tradition of the field.
    bool negativeUp = true;
};

/// The window with its time moved into a recording of so many seconds: no page begins before it, and none
/// ends after it unless the recording is shorter.
TraceWindow KeptInside(TraceWindow window, double total);
/// Another page length; the time at \p share of the page (0 left, 1 right) stays where it is.
TraceWindow WithDuration(TraceWindow window, double duration, double share, double total);
/// Moved so that the time is on the page: where it already is, nothing changes, else it stands a tenth of the
/// page from the left.
TraceWindow Showing(TraceWindow window, double time, double total);

} // namespace orvanta::review
