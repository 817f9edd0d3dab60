// SPDX-License-Identifier: GPL-3.0-or-later
// Samples and time of a recording that may have gaps.
#pragma once

#include "spectra_contract/api.h"

#include <cstdint>
#include <limits>
#include <vector>

namespace orvanta::signal {

/// Stored samples [first, last).
struct SampleRange {
    std::int64_t first = 0;
    std::int64_t last = 0;

    std::int64_t Length() const { return last - first; }
    bool operator==(const SampleRange&) const = default;
};

/// A stretch of stored samples without a gap.
struct Segment {
    std::int64_t first_sample = 0;
    std::int64_t count = 0;
    double start_s = 0; ///< seconds since the recording's first sample

    bool operator==(const Segment&) const = default;
};

/// Maps stored samples at one rate to elapsed time and back. Segments ascend in samples and time and do not
/// overlap.
class ORVANTA_API Timeline {
public:
    Timeline() = default;
    Timeline(double rate_hz, std::vector<Segment> segments);

    double Rate() const { return rate_hz_; }
    const std::vector<Segment>& Segments() const { return segments_; }
    std::int64_t SampleCount() const;
    /// Seconds from the first sample to the end of the last; 0 for an empty timeline.
    double Duration() const;
    /// Elapsed time in seconds of a stored sample; the sample after a segment's last belongs to the next one.
    double TimeOf(std::int64_t sample) const;
    /// The first stored sample at or after \p seconds, to within 1e-6 of a sample; SampleCount() beyond the
    /// end.
    std::int64_t SampleAt(double seconds) const;
    /// The stored samples of the stretch [begin_s, end_s), one range per segment that it meets: in each from
    /// the first sample at or after its begin, as many as its length there gives, trunc(length·rate + 0.5).
    /// So stretches of one length have one number of samples, wherever they begin between two samples. None
    /// lies at or after \p limit_s; a limit inside the stretch ends it exactly.
    std::vector<SampleRange> Ranges(double begin_s, double end_s,
                                    double limit_s = std::numeric_limits<double>::infinity()) const;

private:
    double rate_hz_ = 0;
    std::vector<Segment> segments_;
};

} // namespace orvanta::signal
