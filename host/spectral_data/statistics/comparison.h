// SPDX-License-Identifier: GPL-3.0-or-later
// Comparison of two analyses, bin by bin.
#pragma once

#include "spectra_contract/api.h"

#include <cstdint>
#include <span>
#include <vector>

namespace orvanta::spectral {

/// Effective number of independent epochs among N overlapping tapered ones (Welch 1967, for any placement):
/// N² / Σ_ab ρ(|t_a − t_b|), ρ(d) = (Σ_i w[i]·w[i+d])² / (Σ w²)².
/// \param starts first samples, ascending  \param taper w, n values
/// \return between 1 and N; 0 for no epoch
ORVANTA_API double EffectiveEpochs(std::span<const std::int64_t> starts, std::span<const double> taper);

/// Mean and sum of squared deviations of one sample of N epochs worth n_eff independent ones.
struct SampleMoments {
    double mean = 0;
    double m2 = 0;
    std::uint64_t count = 0;
    double effective = 0;
};

struct TestResult {
    double t = 0;
    double df = 0;
    double p = 0; ///< two-sided
};

/// Two-sided Welch t-test with effective sample sizes in the standard error and in the Welch–Satterthwaite
/// degrees of freedom. All NaN when a side has fewer than 2 epochs, 1 effective epoch or less, or both
/// variances are 0.
ORVANTA_API TestResult WelchTest(const SampleMoments& a, const SampleMoments& b);

/// z-test on atanh of two coherences (0 … 1) with effective numbers of epochs; t is z, df infinite is given
/// as NaN. All NaN when a side has 3 effective epochs or fewer, or a coherence is not below 1.
ORVANTA_API TestResult CoherenceTest(double coherence_a, double effective_a, double coherence_b,
                                     double effective_b);

/// a / b per element; NaN where b is 0 or either is not finite.
ORVANTA_API std::vector<double> Ratio(std::span<const double> a, std::span<const double> b);

} // namespace orvanta::spectral
