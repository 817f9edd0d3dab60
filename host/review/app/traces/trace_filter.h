// SPDX-License-Identifier: GPL-3.0-or-later
// Filters of the traces on screen.
#pragma once

#include "host/review/app/traces/trace_channel.h"

#include <array>
#include <span>
#include <vector>

namespace orvanta::review {

/// What is taken out of the traces before they are drawn; 0 switches a part off. Analyses do not see it.
///
/// The cuts are Butterworth filters of second order (12 dB per octave, −3 dB at the frequency), the notch has
/// quality 30 (−3 dB at ±1/60 of its frequency) and infinite depth, all by the bilinear transform with the
/// frequency kept, as SciPy's butter and iirnotch. They run forward in time, as reviewers know it from
/// recorders: nothing that is seen comes before its cause, and waves near a cut come a little late. Only
/// voltages other than respiration are filtered.
struct TraceFilter {
    double lowCut = 0;  ///< Hz: what is slower goes
    double highCut = 0; ///< Hz: what is faster goes
    double notch = 0;   ///< Hz: mains

    bool operator==(const TraceFilter&) const = default;
};

/// A filter section of second order: y[n] = b0·x[n] + b1·x[n−1] + b2·x[n−2] − a1·y[n−1] − a2·y[n−2].
struct Biquad {
    double b0 = 1, b1 = 0, b2 = 0, a1 = 0, a2 = 0;
};

/// The sections for a rate in Hz, in the order low cut, high cut, notch. A part that is not above 0 or not
/// below half the rate is switched off.
std::vector<Biquad> SectionsOf(const TraceFilter& filter, double rate);
/// The sections for a line; none for a line that is not filtered.
std::vector<Biquad> SectionsOf(const TraceFilter& filter, const TraceChannel& line);

/// Samples after which what a filter had in mind has decayed to less than 10⁻⁶; at most \p most.
std::int64_t SettlingSamples(std::span<const Biquad> sections, std::int64_t most);

/// A filter at work (direct form II transposed). It starts as if the first value had been there for ever.
class FilterRun {
public:
    explicit FilterRun(std::vector<Biquad> sections);

    /// Starts anew with the next value, as after a gap.
    void Restart() { running_ = false; }
    /// Filters in place what follows the values before. What is not finite stays, and starts the filter anew.
    void Apply(std::span<double> values);

private:
    void Settle(double value);
    void ApplyFinite(std::span<double> values);

    std::vector<Biquad> sections_;
    std::vector<std::array<double, 2>> states_;
    bool running_ = false;
};

} // namespace orvanta::review
