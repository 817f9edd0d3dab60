// SPDX-License-Identifier: GPL-3.0-or-later
// Values of traces for pages of any length, at once.
#pragma once

#include "host/review/app/traces/trace_channel.h"

#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace orvanta::signal {
class Recording;
}

namespace orvanta::review {

/// What is taken out of the traces before they are drawn; 0 switches a part off. Analyses do not see it.
struct TraceFilter {
    double lowCut = 0;  ///< Hz: what is slower goes
    double highCut = 0; ///< Hz: what is faster goes
    double notch = 0;   ///< Hz: mains

    bool operator==(const TraceFilter&) const = default;
};

/// A stretch of the recording on so many columns of the screen.
struct PageRequest {
    double start = 0;     ///< seconds since the recording's first sample
    double duration = 10; ///< seconds, above 0
    int columns = 1000;
};

/// Samples of a line that follow each other without a gap.
struct TraceRun {
    double start = 0; ///< seconds, of the first value
    double step = 0;  ///< seconds
    std::vector<float> values;
};

/// Least and greatest value of a line in one column; low above high where there is none.
struct TraceColumn {
    float low = 1, high = -1;

    bool IsEmpty() const { return low > high; }
};

/// A line on a page: runs of samples where few samples meet a column, columns where many do.
struct TraceLine {
    std::vector<TraceRun> runs;
    std::vector<TraceColumn> columns; ///< empty when runs are given
};

struct TracePage {
    std::vector<TraceLine> lines; ///< of the lines asked for
    bool complete = true;         ///< false while columns wait for the background
};

/// Reads pages. Short ones come from the file, long ones from a pyramid of least and greatest values that a
/// thread of its own builds after the lines were set. One thread uses it, the GUI's.
class TraceStore {
public:
    explicit TraceStore(std::shared_ptr<const signal::Recording> recording);
    /// Ends the work in the background.
    ~TraceStore();
    TraceStore(const TraceStore&) = delete;
    TraceStore& operator=(const TraceStore&) = delete;

    /// From now on these lines and this filter; the background starts anew when they differ.
    void SetLines(std::vector<TraceChannel> lines, const TraceFilter& filter);
    /// \param lines numbers of the lines wanted
    /// \throws signal::RecordingError when the file cannot be read any more
    TracePage Read(const PageRequest& request, std::span<const std::size_t> lines) const;
    /// Share of the recording that the pyramid covers, 0 to 1.
    double Progress() const;
    /// Why the background gave up, in one line; empty when it did not.
    std::string Failure() const;
    /// Called, from the thread in the background, now and then while the pyramid grows and when it is done.
    void SetGrown(std::function<void()> grown);

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace orvanta::review
