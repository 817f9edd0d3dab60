// SPDX-License-Identifier: GPL-3.0-or-later
// What a measuring cursor reads off a line.
#pragma once

#include "host/review/app/traces/trace_page.h"

#include <cstddef>
#include <optional>

namespace orvanta::review {

/// A sample: when, and how much in the line's unit.
struct TraceReading {
    double time = 0; ///< seconds since the recording's first sample
    float value = 0;

    bool operator==(const TraceReading&) const = default;
};

/// The sample nearest to the time, the earlier of two, at most half a step away; none in a gap, and none
/// where the line is given as columns (read a page of a few samples there).
std::optional<TraceReading> TraceValueAt(const TraceLine& line, double time);

/// Least and greatest sample from \p begin to \p end, both included (seconds, either may be the earlier);
/// empty when there is none, and where the line is given as columns.
TraceColumn TraceRangeBetween(const TraceLine& line, double begin, double end);

/// The strongest wave of a stretch.
struct DominantWave {
    double frequency = 0; ///< Hz
    double amplitude = 0; ///< in the line's unit, from the middle to the peak: half of peak to peak
};

/// Stretches of fewer or more samples have no dominant wave.
inline constexpr std::size_t kFewestWaveSamples = 8;
inline constexpr std::size_t kMostWaveSamples = std::size_t{1} << 16;

/// Frequency and amplitude of the highest peak in the amplitude spectrum A(f) = 2 |Σ w[i]·(x[i] −
/// mean)·exp(−2πi·f·i)| / Σ w[i] of the samples from \p begin to \p end, w the periodic Hann window, padded
/// to at least four times the length. Frequencies are those with at least one and a half periods in the
/// stretch, so that the slow rest of the window's own spectrum does not count, and below half the rate; the
/// peak lies on the parabola through the logarithms of the highest bin and its neighbours (J. O. Smith,
/// Spectral Audio Signal Processing, "Quadratic Interpolation of Spectral Peaks"). None when a gap or what is
/// no number lies in the stretch, when it is too short or too long, when nothing moves in it, and where the
/// line is given as columns.
std::optional<DominantWave> DominantWaveBetween(const TraceLine& line, double begin, double end);

} // namespace orvanta::review
