// SPDX-License-Identifier: GPL-3.0-or-later
// Which stretches of a recording an analysis processes, and the epochs cut from them.
#pragma once

#include "host/signal_base/timeline.h"
#include "spectra_contract/api.h"
#include "spectra_contract/events.h"
#include "spectra_contract/spectra_macro.h"

#include <cstdint>
#include <vector>

namespace orvanta::spectral {

/// The transform's geometry: n = trunc(seconds·rate + 0.5), p = smallest power of two >= n,
/// step = max(1, trunc(n·(1 − overlap/100) + 0.5)), all in samples. n = 0 when the window is shorter than
/// half a sample.
struct WindowGeometry {
    std::uint32_t window = 0;
    std::uint32_t padded = 1;
    std::uint32_t step = 1;

    bool operator==(const WindowGeometry&) const = default;
};
ORVANTA_API WindowGeometry GetWindowGeometry(const SpectraMacro& macro, double rate_hz);

/// The processed stretches of time in seconds, before gaps are cut out: by the macro's interval mode,
/// rejected events removed, inside [0, duration], ascending. Segments of spot events stay apart even when
/// they overlap. \param cursor_s start for the by-duration mode
struct TimeSpan {
    double begin_s = 0;
    double end_s = 0;

    bool operator==(const TimeSpan&) const = default;
};
ORVANTA_API std::vector<TimeSpan> GetProcessedSpans(const SpectraMacro& macro, const EventsManager& events,
                                                    double duration_s, double cursor_s);

/// Epochs' first samples, ascending: every span is cut at gaps, and windows are laid from each piece's start
/// as long as they fit; then the macro's selection (first N, or N at random with a fixed seed, in time
/// order).
ORVANTA_API std::vector<std::int64_t> GetEpochStarts(const SpectraMacro& macro,
                                                     const signal::Timeline& timeline,
                                                     const std::vector<TimeSpan>& spans,
                                                     const WindowGeometry& geometry);

} // namespace orvanta::spectral
