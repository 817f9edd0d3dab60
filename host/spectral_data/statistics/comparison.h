// SPDX-License-Identifier: GPL-3.0-or-later
// Comparison of two analyses, bin by bin.
#pragma once

#include "spectra_contract/api.h"

#include <cstdint>
#include <span>
#include <vector>

namespace orvanta::spectral {

/// Effective number of independent epochs among N overlapping tapered ones (Welch 1967, for any placement):
/// N² / Σ_ab ρ(|t_a − t_b|), ρ(d) = (Σ_i w[i]·w[i+d])² / (Σ w²)². It belongs to means of power and of
/// cross-spectra, and to the coherence.
/// \param starts first samples, ascending  \param taper w, n values
/// \return between 1 and N; 0 for no epoch; NaN for a taper that is 0 everywhere
ORVANTA_API double EffectiveEpochs(std::span<const std::int64_t> starts, std::span<const double> taper);

/// The same for ln power, the number that WelchTest wants: N² / Σ_ab Li2(ρ)/Li2(1), Li2 the dilogarithm.
/// Powers of two overlapping epochs are exponentially distributed with correlation ρ; their logarithms are
/// correlated by Li2(ρ)·6/π² only, less than ρ, so that Welch's number makes a test of them too shy.
ORVANTA_API double EffectiveLogEpochs(std::span<const std::int64_t> starts, std::span<const double> taper);

/// Moments of one sample of N epochs that are worth n_eff independent ones.
struct SampleMoments {
    double mean = 0;
    double m2 = 0;           ///< sum of squared deviations from the mean
    std::uint64_t count = 0; ///< N
    double effective = 0;    ///< n_eff of the values that were averaged
};

struct TestResult {
    double t = 0;
    double df = 0;
    double p = 0; ///< two-sided
};

/// Two-sided Welch t-test with effective sample sizes in the standard error and in the Welch–Satterthwaite
/// degrees of freedom. Of N values with variance σ² and effective number n_eff, E[m2] = σ²·N·(1 − 1/n_eff),
/// so the squared standard error of the mean is v = m2 / (N·(n_eff − 1)), and t = (mean_a − mean_b) /
/// sqrt(v_a + v_b), df = (v_a + v_b)² / (v_a²/(n_a − 1) + v_b²/(n_b − 1)). All NaN when a side has fewer than
/// 2 epochs, 1 effective epoch or less, or a moment that is not finite, or both variances are 0.
ORVANTA_API TestResult WelchTest(const SampleMoments& a, const SampleMoments& b);

/// z-test on atanh of two coherences (0 … 1) with effective numbers of epochs (EffectiveEpochs):
/// z = (h_a − h_b) / sqrt(s_a + s_b), h = atanh(c) − s, s = 1/(2·(n_eff − 1)), bias and variance after
/// Enochson and Goodman (1965). t is z; df, infinite, is given as NaN. All NaN when a side has 3 effective
/// epochs or fewer, or a coherence is not in [0, 1).
ORVANTA_API TestResult CoherenceTest(double coherence_a, double effective_a, double coherence_b,
                                     double effective_b);

/// a / b per element; NaN where b is 0 or the quotient is not finite.
/// \throws std::invalid_argument when the lengths differ
ORVANTA_API std::vector<double> Ratio(std::span<const double> a, std::span<const double> b);

} // namespace orvanta::spectral
