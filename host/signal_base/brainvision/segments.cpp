// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/brainvision/segments.h"

#include "host/signal_base/calendar.h"
#include "host/signal_base/limited_list.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace orvanta::signal::brainvision {

namespace {

constexpr double kLongestGap = 366.0 * 86400;
constexpr double kSameMoment = 1e-3;

/// A stretch of frames without a gap.
struct Stretch {
    std::uint64_t first_frame = 0;
    double start_s = 0;
};

std::vector<Marker> NewSegments(const std::vector<Marker>& markers, std::uint64_t frames) {
    std::vector<Marker> starts;
    std::copy_if(markers.begin(), markers.end(), std::back_inserter(starts), [&](const Marker& marker) {
        return IsNewSegment(marker) && (marker.frame == 0 || marker.frame < frames);
    });
    std::stable_sort(starts.begin(), starts.end(),
                     [](const Marker& a, const Marker& b) { return a.frame < b.frame; });
    return starts;
}

/// Microseconds of frame 0 by the first dated marker.
std::optional<std::int64_t> StartOf(const std::vector<Marker>& starts, double rate_hz) {
    const auto dated = std::find_if(starts.begin(), starts.end(),
                                    [](const Marker& marker) { return marker.date.has_value(); });
    if (dated == starts.end()) {
        return std::nullopt;
    }
    const double before = std::round(static_cast<double>(dated->frame) / rate_hz * 1e6);
    const std::int64_t date = MicrosecondsOf(*dated->date).value_or(0);
    // A start before the calendar's first year is none.
    constexpr double kEarliest = -6.2e16;
    return static_cast<double>(date) - before < kEarliest
               ? std::nullopt
               : std::optional(date - static_cast<std::int64_t>(before));
}

/// Adds the stretch that \p marker starts, when it does.
void Continue(std::vector<Stretch>& stretches, const Marker& marker, std::optional<std::int64_t> start,
              double rate_hz, LimitedList& list) {
    const Stretch& last = stretches.back();
    if (marker.frame == last.first_frame) {
        return;
    }
    const double expected = last.start_s + static_cast<double>(marker.frame - last.first_frame) / rate_hz;
    double gap = 0;
    if (marker.date && start) {
        const std::int64_t elapsed = MicrosecondsOf(*marker.date).value_or(*start) - *start;
        gap = static_cast<double>(elapsed) * 1e-6 - expected;
        if (std::abs(gap) <= std::max(kSameMoment, 1 / rate_hz)) {
            return;
        }
        if (gap < 0 || gap > kLongestGap) {
            list.Add(
                "line " + std::to_string(marker.line) +
                ": the date of the new segment does not fit the data before it, taken as a break without "
                "a gap");
            gap = 0;
        }
    }
    stretches.push_back({marker.frame, expected + gap});
}

/// The largest block of at most \p longest frames that divides all of \p stretches.
std::uint64_t BlockFrames(const std::vector<Stretch>& stretches, std::uint64_t longest) {
    std::uint64_t common = 0;
    for (const Stretch& stretch : stretches) {
        common = std::gcd(common, stretch.first_frame);
    }
    if (common == 0) {
        return longest;
    }
    std::uint64_t block = std::min(common, longest);
    while (common % block != 0) {
        --block;
    }
    return block;
}

} // namespace

Segments LayOutSegments(const std::vector<Marker>& markers, double rate_hz, std::uint64_t frames,
                        std::uint64_t maxBlockFrames, const std::string& name,
                        std::vector<std::string>& repairs) {
    LimitedList list(repairs, name + ": ");
    const std::vector<Marker> starts = NewSegments(markers, frames);
    const std::optional<std::int64_t> start = StartOf(starts, rate_hz);
    std::vector<Stretch> stretches = {{0, 0}};
    for (const Marker& marker : starts) {
        Continue(stretches, marker, start, rate_hz, list);
    }
    Segments result;
    if (start) {
        result.start = TimeOfMicroseconds(*start);
    }
    result.block_frames = BlockFrames(stretches, maxBlockFrames);
    const std::uint64_t blocks = frames / result.block_frames + (frames % result.block_frames == 0 ? 0 : 1);
    for (std::size_t i = 0; i < stretches.size() && frames > 0; ++i) {
        const std::uint64_t first = stretches[i].first_frame / result.block_frames;
        const std::uint64_t next =
            i + 1 < stretches.size() ? stretches[i + 1].first_frame / result.block_frames : blocks;
        result.segments.push_back({first, next - first, stretches[i].start_s});
    }
    return result;
}

} // namespace orvanta::signal::brainvision
