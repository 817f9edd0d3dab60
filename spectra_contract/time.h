// SPDX-License-Identifier: GPL-3.0-or-later
// Points and stretches of time in a recording.
#pragma once

#include "spectra_contract/api.h"

#include <compare>
#include <cstdint>
#include <vector>

/// A point in time, counted from the recording's first sample.
///
/// Kept in whole nanoseconds, so that a sample's time converts back to the same sample at every rate below
/// 100 MHz and over several centuries.
class ORVANTA_API XTime {
public:
    /// Which parts a time text shows.
    enum class DTMode { DateTime = 0, Time = 1 };
    /// Whether a time text counts from the recording's start or shows the clock.
    enum class ARMode { Elapsed = 0, Clock = 1 };

    constexpr XTime() = default;
    static constexpr XTime FromNanoseconds(std::int64_t ns) {
        XTime time;
        time.ns_ = ns;
        return time;
    }
    /// Rounds to the nearest nanosecond, half away from zero. \p seconds must be finite and below 9.2e9 in
    /// size.
    static XTime FromSeconds(double seconds);

    constexpr std::int64_t Nanoseconds() const { return ns_; }
    constexpr double Seconds() const { return static_cast<double>(ns_) / 1e9; }

    // clang-tidy takes the 0 in the comparisons that follow from this one for a pointer.
    constexpr auto operator<=>(const XTime&) const = default; // NOLINT(modernize-use-nullptr)

private:
    std::int64_t ns_ = 0;
};

/// A stretch of time [begin, end).
class ORVANTA_API XTimeInterval {
public:
    constexpr XTimeInterval() = default;
    constexpr XTimeInterval(XTime begin, XTime end) : begin_(begin), end_(end) {}

    constexpr const XTime* GetBeginPtr() const { return &begin_; }
    constexpr const XTime* GetEndPtr() const { return &end_; }
    /// Length in samples at \p rate Hz, rounded to nearest; 0 for an empty or reversed interval.
    std::uint32_t GetDuration(std::uint32_t rate) const;

    constexpr bool operator==(const XTimeInterval&) const = default;

private:
    XTime begin_;
    XTime end_;
};

/// An interval with the number of the step it belongs to (the epoch's index, in an analysis's event list).
struct XTimeItem {
    XTimeInterval Interval;
    std::uint32_t Step = 0;

    constexpr bool operator==(const XTimeItem&) const = default;
};

/// Intervals in the order in which they were added.
class ORVANTA_API XTimeList {
public:
    using const_iterator = std::vector<XTimeItem>::const_iterator;

    const_iterator begin() const { return items_.begin(); }
    const_iterator end() const { return items_.end(); }
    bool empty() const { return items_.empty(); }
    std::size_t size() const { return items_.size(); }
    void clear() { items_.clear(); }
    void push_back(const XTimeItem& item) { items_.push_back(item); }
    void push_back(const XTimeInterval& interval, std::uint32_t step = 0) {
        items_.push_back({interval, step});
    }

    bool operator==(const XTimeList&) const = default;

private:
    std::vector<XTimeItem> items_;
};
