// SPDX-License-Identifier: GPL-3.0-or-later
// Two analyses compared, trace by trace.
#pragma once

#include "host/spectral_data/results/analysis.h"
#include "spectra_contract/api.h"

#include <optional>
#include <vector>

namespace orvanta::spectral {

/// Per bin 0 … p/2; NaN where not computable.
struct TraceComparison {
    std::vector<double> p;     ///< two-sided
    std::vector<double> t;     ///< t, for coherence z
    std::vector<double> df;    ///< degrees of freedom; NaN for coherence
    std::vector<double> ratio; ///< main mean / secondary mean
};

/// Whether bins and traces correspond: equal transform length, resolution and montage.
ORVANTA_API bool AreComparable(const Analysis& main, const Analysis& secondary);

/// Compares one trace of two comparable analyses. Power and amplitude: Welch t-test on ln power of the epochs
/// (a root only halves the logarithm, so both entities give one test); coherence: z-test on its atanh; phase:
/// no test. The ratio is that of the entity's means.
ORVANTA_API TraceComparison CompareRows(const Analysis& main, TraceRow mainTrace, const Analysis& secondary,
                                        TraceRow secondaryTrace, SPECT::Entity::Type entity);

/// The same for a sensor or channel; none when a side did not analyse it.
template <typename Trace>
std::optional<TraceComparison> CompareTrace(const Analysis& main, const Analysis& secondary,
                                            const Trace* trace, SPECT::Entity::Type entity) {
    const auto ofMain = main.Row(trace);
    const auto ofSecondary = secondary.Row(trace);
    return ofMain && ofSecondary ? std::optional(CompareRows(main, *ofMain, secondary, *ofSecondary, entity))
                                 : std::nullopt;
}

/// Effective number of independent epochs behind the entity's test: of ln power, for coherence of
/// cross-spectra; NaN for phase.
ORVANTA_API double EffectiveCountOf(const Analysis& analysis, SPECT::Entity::Type entity);

} // namespace orvanta::spectral
