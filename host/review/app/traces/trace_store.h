// SPDX-License-Identifier: GPL-3.0-or-later
// Values of traces for pages of any length, at once.
#pragma once

#include "host/review/app/traces/trace_channel.h"
#include "host/review/app/traces/trace_filter.h"
#include "host/review/app/traces/trace_page.h"

#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace orvanta::signal {
class Recording;
}

namespace orvanta::review {

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
