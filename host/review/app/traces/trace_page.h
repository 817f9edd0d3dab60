// SPDX-License-Identifier: GPL-3.0-or-later
// Values of traces on one page.
#pragma once

#include <cmath>
#include <vector>

namespace orvanta::review {

/// Up to so many samples meet a column as runs; more become columns.
inline constexpr double kRunSamples = 4;

/// A stretch of the recording on so many columns of the screen.
struct PageRequest {
    double start = 0;     ///< seconds since the recording's first sample
    double duration = 10; ///< seconds, above 0
    int columns = 1000;   ///< at least 1
};

inline bool IsPage(const PageRequest& request) {
    return request.duration > 0 && std::isfinite(request.start) && request.columns > 0;
}

/// Samples of a line that follow each other without a gap. A run reaches one sample beyond the page on either
/// side, so that what is drawn reaches the page's edges.
struct TraceRun {
    double start = 0; ///< seconds, of the first value
    double step = 0;  ///< seconds
    std::vector<float> values;
};

/// Least and greatest value of a line in one column; low above high where there is none.
struct TraceColumn {
    float low = 1, high = -1;

    bool IsEmpty() const { return low > high; }
    bool operator==(const TraceColumn&) const = default;
};

/// A line on a page: runs of samples where up to kRunSamples samples meet a column, columns where more do.
/// What is not a finite number (a gap, NaN) breaks a run and is left out of columns.
struct TraceLine {
    std::vector<TraceRun> runs;
    std::vector<TraceColumn> columns; ///< empty when runs are given
};

struct TracePage {
    std::vector<TraceLine> lines; ///< of the lines asked for
    bool complete = true;         ///< false while columns wait for the background
};

} // namespace orvanta::review
