// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/timeline.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace orvanta::signal {

namespace {

// Times come from decimal text and from nanoseconds; a millionth of a sample absorbs their rounding.
constexpr double kSampleTolerance = 1e-6;

std::int64_t CeilSample(double samples) {
    return static_cast<std::int64_t>(std::ceil(samples - kSampleTolerance));
}

} // namespace

Timeline::Timeline(double rate_hz, std::vector<Segment> segments)
    : rate_hz_(rate_hz), segments_(std::move(segments)) {
    if (!segments_.empty() && !(rate_hz_ > 0)) {
        throw std::invalid_argument("a timeline with samples needs a rate above 0");
    }
}

std::int64_t Timeline::SampleCount() const {
    return segments_.empty() ? 0 : segments_.back().first_sample + segments_.back().count;
}

double Timeline::Duration() const {
    if (segments_.empty()) {
        return 0;
    }
    const Segment& last = segments_.back();
    return last.start_s + static_cast<double>(last.count) / rate_hz_;
}

double Timeline::TimeOf(std::int64_t sample) const {
    if (segments_.empty()) {
        return 0;
    }
    auto after =
        std::upper_bound(segments_.begin(), segments_.end(), sample,
                         [](std::int64_t s, const Segment& segment) { return s < segment.first_sample; });
    const Segment& segment = after == segments_.begin() ? *after : *std::prev(after);
    return segment.start_s + static_cast<double>(sample - segment.first_sample) / rate_hz_;
}

std::int64_t Timeline::SampleAt(double seconds) const {
    for (const Segment& segment : segments_) {
        const std::int64_t inside =
            std::max<std::int64_t>(0, CeilSample((seconds - segment.start_s) * rate_hz_));
        if (inside < segment.count) {
            return segment.first_sample + inside;
        }
    }
    return SampleCount();
}

std::vector<SampleRange> Timeline::Ranges(double begin_s, double end_s, double limit_s) const {
    std::vector<SampleRange> ranges;
    end_s = std::min(end_s, limit_s);
    const auto samplesInto = [&](const Segment& segment, double seconds) {
        return (seconds - segment.start_s) * rate_hz_;
    };
    auto segment = std::partition_point(segments_.begin(), segments_.end(), [&](const Segment& earlier) {
        return samplesInto(earlier, begin_s) >= static_cast<double>(earlier.count);
    });
    for (; segment != segments_.end() && samplesInto(*segment, end_s) > 0; ++segment) {
        const auto count = static_cast<double>(segment->count);
        const double begin = std::max(0.0, samplesInto(*segment, begin_s));
        const double end = samplesInto(*segment, end_s);
        const std::int64_t first = begin >= count ? segment->count : CeilSample(begin);
        // What reaches the segment's end is cut there; a number of samples may then be out of range too.
        const auto whole = [&](double samples) {
            return samples >= count ? segment->count : static_cast<std::int64_t>(samples);
        };
        const std::int64_t limit = whole(std::ceil(samplesInto(*segment, limit_s) - kSampleTolerance));
        const std::int64_t length = whole(std::trunc(end - begin + 0.5 + kSampleTolerance));
        const std::int64_t last =
            limit_s <= end_s ? limit : std::min({first + length, limit, segment->count});
        if (first < last) {
            ranges.push_back({segment->first_sample + first, segment->first_sample + last});
        }
    }
    return ranges;
}

} // namespace orvanta::signal
