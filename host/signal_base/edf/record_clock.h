// SPDX-License-Identifier: GPL-3.0-or-later
// From the times of the data records to stretches without a gap.
#pragma once

#include "host/signal_base/recording_data.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace orvanta::signal {

/// Collects the onset of every data record in order. A record continues the stretch when it begins where the
/// record before it ends, to within \p tolerance_s; each record is compared with the one before, so that a
/// rounded duration cannot add up to a gap.
class RecordClock {
public:
    RecordClock(double record_seconds, double tolerance_s)
        : recordSeconds_(record_seconds), tolerance_(tolerance_s) {}

    /// \p onset_s in seconds since the start of the file; none for a record without a time, which is taken to
    /// follow the one before.
    void AddRecord(std::optional<double> onset_s);

    std::uint64_t Records() const { return records_; }
    /// Seconds from the start of the file to the first sample.
    double FirstOnset() const { return firstOnset_; }
    /// Stretches of records; times count from the first sample, ascend and do not overlap.
    const std::vector<BlockSegment>& Segments() const { return segments_; }
    /// Seconds from the first sample to the end of the last record.
    double Duration() const;
    std::uint64_t RecordsWithoutTime() const { return withoutTime_; }
    /// Breaks at which a record begins before the one before it ends; it is placed behind that.
    std::uint64_t Overlaps() const { return overlaps_; }
    /// Breaks at which time is missing.
    std::uint64_t Gaps() const { return segments_.empty() ? 0 : segments_.size() - 1 - overlaps_; }
    /// Seconds of all gaps together.
    double GapSeconds() const;

private:
    double EndOf(const BlockSegment& segment) const {
        return segment.start_s + static_cast<double>(segment.count) * recordSeconds_;
    }

    double recordSeconds_;
    double tolerance_;
    std::uint64_t records_ = 0;
    double firstOnset_ = 0;
    double expected_ = 0; ///< onset at which the next record follows without a gap
    std::uint64_t withoutTime_ = 0;
    std::uint64_t overlaps_ = 0;
    std::vector<BlockSegment> segments_;
};

} // namespace orvanta::signal
