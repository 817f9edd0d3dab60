// SPDX-License-Identifier: GPL-3.0-or-later
// Values of traces for pages of any length, at once.
#pragma once

#include "host/review/app/traces/trace_channel.h"
#include "host/review/app/traces/trace_filter.h"
#include "host/review/app/traces/trace_page.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace orvanta::signal {
class Recording;
}

namespace orvanta::review {

/// Bytes that the least and greatest values of a whole recording take, at most.
inline constexpr std::size_t kPyramidBytes = std::size_t{64} << 20;

/// Reads pages. Short ones come from the file, exactly; long ones from a pyramid of least and greatest values
/// that a thread of its own builds after the lines were set, with the edges of columns moved to those of the
/// pyramid's buckets. A page that is finer than the buckets comes from the file too as long as that takes
/// less than some 30 ms. One thread uses it, the GUI's.
class TraceStore {
public:
    /// \param budget bytes for the pyramid, at most
    explicit TraceStore(std::shared_ptr<const signal::Recording> recording,
                        std::size_t budget = kPyramidBytes);
    /// Ends the work in the background.
    ~TraceStore();
    TraceStore(const TraceStore&) = delete;
    TraceStore& operator=(const TraceStore&) = delete;

    /// From now on these lines and this filter; the background starts anew when values differ from those
    /// before. \throws std::invalid_argument for a line whose signals have different rates
    void SetLines(std::vector<TraceChannel> lines, const TraceFilter& filter);
    /// \param lines numbers of the lines wanted; the answer's lines are theirs, in this order. What is no
    /// page (see PageRequest) has empty lines. \throws std::out_of_range for a number that no line has;
    /// signal::RecordingError when the file cannot be read any more
    TracePage Read(const PageRequest& request, std::span<const std::size_t> lines) const;
    /// Share of the recording that the pyramid covers, 0 to 1.
    double Progress() const;
    /// Why the background gave up, in one line; empty when it did not. Long pages then stay incomplete until
    /// other lines are set.
    std::string Failure() const;
    /// Called, from the thread in the background, at most ten times a second while the pyramid grows, and
    /// when it is done or was given up. It must not wait for the thread that uses the store, and must not
    /// call this; after it was replaced it is called no more.
    void SetGrown(std::function<void()> grown);

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace orvanta::review
