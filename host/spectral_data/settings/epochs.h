// SPDX-License-Identifier: GPL-3.0-or-later
// Which stretches of a recording an analysis processes, and the epochs cut from them.
#pragma once

#include "host/signal_base/timeline.h"
#include "spectra_contract/api.h"
#include "spectra_contract/events.h"
#include "spectra_contract/spectra_macro.h"

#include <cstdint>
#include <limits>
#include <vector>

namespace orvanta::spectral {

/// The transform's geometry: n = trunc(seconds·rate + 0.5), p = smallest power of two >= n,
/// step = max(1, trunc(n·(100 − overlap)/100 + 0.5)), all in samples. n = 0 (p = 1, step = 1) when the window
/// is shorter than half a sample, longer than 2^24 samples, or the rate is not above 0.
struct WindowGeometry {
    std::uint32_t window = 0;
    std::uint32_t padded = 1;
    std::uint32_t step = 1;

    bool operator==(const WindowGeometry&) const = default;
};
ORVANTA_API WindowGeometry GetWindowGeometry(const SpectraMacro& macro, double rate_hz);

/// The processed stretches of time in seconds, before gaps are cut out: by the macro's interval mode,
/// rejected events removed, inside [0, duration], ascending.
/// - By duration: from the cursor on, at most to the end.
/// - By state events: the union of the accepted ones; events that touch or overlap are one stretch.
/// - By spot events: per event and step j the segment [t + pre-trigger + j·increment, + duration], cut to the
///   recording. Segments stay apart even when they overlap.
/// A rejected event that has no length (a spot event) is cut out as the instant that it marks: no epoch
/// contains it, and the epochs after it are laid anew.
/// \param cursor_s start for the by-duration mode
struct TimeSpan {
    double begin_s = 0;
    double end_s = 0;
    /// Begin of the next rejected stretch: no sample at or after it belongs to the span.
    double limit_s = std::numeric_limits<double>::infinity();

    bool operator==(const TimeSpan&) const = default;
};
ORVANTA_API std::vector<TimeSpan> GetProcessedSpans(const SpectraMacro& macro, const EventsManager& events,
                                                    double duration_s, double cursor_s);

/// Epochs' first samples, strictly ascending: every span is brought to samples and cut at gaps
/// (signal::Timeline::Ranges: the begin up to the next sample, the length to the nearest number of them, so
/// that a segment as long as the window holds one, wherever its event lies), and windows are laid from each
/// piece's start as long as they fit; an epoch that several spans give counts once, since the same samples
/// say nothing new. Then the macro's selection: all, the first N, or N at random in time order (the same ones
/// every time and on every platform); all of them when there are fewer than N.
ORVANTA_API std::vector<std::int64_t> GetEpochStarts(const SpectraMacro& macro,
                                                     const signal::Timeline& timeline,
                                                     const std::vector<TimeSpan>& spans,
                                                     const WindowGeometry& geometry);

} // namespace orvanta::spectral
