// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/statistics/comparison.h"

#include "host/spectral_data/not_computable.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvanta::spectral {

namespace {

constexpr double kDilogOfOne = std::numbers::pi * std::numbers::pi / 6.0;

/// Li2(x) = Σ_k x^k/k² for 0 <= x <= 1; above 1/2 by Euler's reflection, so that the series is short.
double Dilogarithm(double x) {
    if (x >= 1) {
        return kDilogOfOne;
    }
    if (x > 0.5) {
        return kDilogOfOne - std::log(x) * std::log1p(-x) - Dilogarithm(1 - x);
    }
    double sum = 0, power = x;
    for (double k = 1; power > 1e-17 * sum; ++k) {
        sum += power / (k * k);
        power *= x;
    }
    return sum;
}

double CorrelationOfPower(double rho) {
    return rho;
}

double CorrelationOfLogPower(double rho) {
    return Dilogarithm(rho) / kDilogOfOne;
}

/// Correlation of the epochs' values by lag; each lag is worked out once, when it is first met.
class Correlations {
public:
    Correlations(std::span<const double> taper, double (*ofRho)(double))
        : taper_(taper), ofRho_(ofRho), known_(taper.size(), kNaN), energy_(Product(0)) {}

    double At(std::size_t lag) {
        if (std::isnan(known_[lag])) {
            const double overlap = Product(lag) / energy_;
            known_[lag] = ofRho_(std::min(1.0, overlap * overlap));
        }
        return known_[lag];
    }
    double Energy() const { return energy_; }

private:
    double Product(std::size_t lag) const {
        double sum = 0;
        for (std::size_t i = 0; i + lag < taper_.size(); ++i) {
            sum += taper_[i] * taper_[i + lag];
        }
        return sum;
    }

    std::span<const double> taper_;
    double (*ofRho_)(double);
    std::vector<double> known_;
    double energy_;
};

double Effective(std::span<const std::int64_t> starts, std::span<const double> taper,
                 double (*ofRho)(double)) {
    if (starts.empty()) {
        return 0;
    }
    Correlations correlations(taper, ofRho);
    if (!(correlations.Energy() > 0)) {
        return kNaN;
    }
    const auto window = static_cast<std::int64_t>(taper.size());
    double pairs = 0;
    for (std::size_t a = 0; a < starts.size(); ++a) {
        for (std::size_t b = a + 1; b < starts.size() && starts[b] - starts[a] < window; ++b) {
            pairs += correlations.At(static_cast<std::size_t>(starts[b] - starts[a]));
        }
    }
    const auto count = static_cast<double>(starts.size());
    return std::max(1.0, count * count / (count + 2 * pairs));
}

} // namespace

double EffectiveEpochs(std::span<const std::int64_t> starts, std::span<const double> taper) {
    return Effective(starts, taper, CorrelationOfPower);
}

double EffectiveLogEpochs(std::span<const std::int64_t> starts, std::span<const double> taper) {
    return Effective(starts, taper, CorrelationOfLogPower);
}

} // namespace orvanta::spectral
