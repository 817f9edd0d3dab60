// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_state.h"

#include <algorithm>

namespace orvanta::review {

TraceWindow KeptInside(TraceWindow window, double total) {
    window.duration = std::clamp(window.duration, kShortestPage, kLongestPage);
    window.start = std::clamp(window.start, 0.0, std::max(0.0, total - window.duration));
    return window;
}

TraceWindow WithDuration(TraceWindow window, double duration, double share, double total) {
    const double kept = std::clamp(duration, kShortestPage, kLongestPage);
    window.start += share * (window.duration - kept);
    window.duration = kept;
    return KeptInside(window, total);
}

TraceWindow Showing(TraceWindow window, double time, double total) {
    if (time < window.start || time >= window.start + window.duration) {
        window.start = time - window.duration / 10;
    }
    return KeptInside(window, total);
}

} // namespace orvanta::review
