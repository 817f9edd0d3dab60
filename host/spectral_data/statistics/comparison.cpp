// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/statistics/comparison.h"

#include "host/spectral_data/not_computable.h"

#include <boost/math/distributions/normal.hpp>
#include <boost/math/distributions/students_t.hpp>

#include <cmath>
#include <stdexcept>

namespace orvanta::spectral {

namespace {

constexpr TestResult kNotComputable{kNaN, kNaN, kNaN};

bool IsUsable(const SampleMoments& sample) {
    return sample.count >= 2 && sample.effective > 1 && std::isfinite(sample.effective) &&
           std::isfinite(sample.mean) && std::isfinite(sample.m2);
}

double SquaredStandardError(const SampleMoments& sample) {
    return sample.m2 / (static_cast<double>(sample.count) * (sample.effective - 1));
}

bool IsUsable(double coherence, double effective) {
    return coherence >= 0 && coherence < 1 && effective > 3 && std::isfinite(effective);
}

/// Bias and variance of atanh of a coherence; the two are equal.
double BiasOfAtanh(double effective) {
    return 1 / (2 * (effective - 1));
}

} // namespace

TestResult WelchTest(const SampleMoments& a, const SampleMoments& b) {
    if (!IsUsable(a) || !IsUsable(b)) {
        return kNotComputable;
    }
    const double ofA = SquaredStandardError(a);
    const double ofB = SquaredStandardError(b);
    const double both = ofA + ofB;
    if (!(both > 0) || !std::isfinite(both)) {
        return kNotComputable;
    }
    // With shares instead of squared errors, tiny variances cannot underflow.
    const double shareA = ofA / both;
    const double shareB = ofB / both;
    TestResult result;
    result.t = (a.mean - b.mean) / std::sqrt(both);
    result.df = 1 / (shareA * shareA / (a.effective - 1) + shareB * shareB / (b.effective - 1));
    const boost::math::students_t distribution(result.df);
    result.p = 2 * boost::math::cdf(boost::math::complement(distribution, std::abs(result.t)));
    return result;
}

TestResult CoherenceTest(double coherence_a, double effective_a, double coherence_b, double effective_b) {
    if (!IsUsable(coherence_a, effective_a) || !IsUsable(coherence_b, effective_b)) {
        return kNotComputable;
    }
    const double biasA = BiasOfAtanh(effective_a);
    const double biasB = BiasOfAtanh(effective_b);
    const double difference = (std::atanh(coherence_a) - biasA) - (std::atanh(coherence_b) - biasB);
    const double z = difference / std::sqrt(biasA + biasB);
    const boost::math::normal distribution;
    return {z, kNaN, 2 * boost::math::cdf(boost::math::complement(distribution, std::abs(z)))};
}

std::vector<double> Ratio(std::span<const double> a, std::span<const double> b) {
    if (a.size() != b.size()) {
        throw std::invalid_argument("Ratio: the spectra differ in length");
    }
    std::vector<double> ratio(a.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
        const double quotient = a[i] / b[i];
        ratio[i] = b[i] != 0 && std::isfinite(b[i]) && std::isfinite(quotient) ? quotient : kNaN;
    }
    return ratio;
}

} // namespace orvanta::spectral
