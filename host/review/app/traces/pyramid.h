// SPDX-License-Identifier: GPL-3.0-or-later
// Least and greatest values of lines over a whole recording.
#pragma once

#include "host/review/app/traces/bucket_grid.h"
#include "host/review/app/traces/line_group.h"
#include "host/review/app/traces/trace_filter.h"
#include "host/review/app/traces/trace_page.h"

#include <atomic>
#include <functional>
#include <memory>
#include <span>
#include <stop_token>
#include <utility>
#include <vector>

namespace orvanta::review {

/// Least and greatest values in buckets of equal time, and in buckets of four of these, and so on. The
/// smallest bucket holds 16 samples of the highest rate, or as many more as keep the memory below the budget.
/// One thread builds, another may read at the same time what is built.
class Pyramid {
public:
    /// \param budget bytes
    /// \throws std::invalid_argument as LineGroup
    Pyramid(std::shared_ptr<const signal::Recording> recording, std::vector<TraceChannel> lines,
            const TraceFilter& filter, std::size_t budget);
    ~Pyramid();
    Pyramid(const Pyramid&) = delete;
    Pyramid& operator=(const Pyramid&) = delete;

    /// Reads the file once, from the beginning to the end, in pieces of about a megabyte. Filters run from
    /// the begin of each segment. To be called once. \param grown called after each piece \return false when
    /// stopped \throws signal::RecordingError, std::bad_alloc
    bool Build(const std::stop_token& stop, const std::function<void()>& grown);

    /// Share of the file that was read, 0 to 1; what is read later has at least that.
    double Progress() const { return groups_.empty() ? 1 : progress_.load(std::memory_order_acquire); }
    /// Whether all that the page shows is built.
    bool Covers(const PageRequest& request) const;
    /// Whether every line has at least a bucket for each column of the page.
    bool IsFineEnough(const PageRequest& request) const;
    /// Columns for the lines, whose edges are moved to those of buckets: each takes the buckets that begin in
    /// it, or, where it is narrower than a bucket, the one in which it begins. Those that are not built yet
    /// are empty, and the page is not complete then.
    TracePage Read(const PageRequest& request, std::span<const std::size_t> wanted) const;

private:
    struct Group;

    /// False when stopped.
    bool AddBlocks(Group& group, const std::byte* bytes, std::uint64_t firstBlock, std::uint64_t count,
                   const std::stop_token& stop) const;

    std::shared_ptr<const signal::Recording> recording_;
    std::vector<std::unique_ptr<Group>> groups_;
    std::vector<std::pair<const Group*, std::size_t>> places_; ///< by line: group and member; null for none
    std::atomic<double> progress_ = 0;
};

} // namespace orvanta::review
