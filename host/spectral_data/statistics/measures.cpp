// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/statistics/measures.h"

#include "host/spectral_data/not_computable.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace orvanta::spectral {

namespace {

using SPECT::Entity::Type;
using Measure = SPECT::Meas::Type;

/// Share of the band's power below the spectral edge.
constexpr double kEdgeShare = 0.95;
/// Directions whose mean vector is shorter than this cancel; rounding alone leaves some 1e-16.
constexpr double kNoDirection = 1e-12;

double Sum(std::span<const double> values) {
    return std::accumulate(values.begin(), values.end(), 0.0);
}

double Mean(std::span<const double> values) {
    return Sum(values) / static_cast<double>(values.size());
}

double FiniteOrNaN(double value) {
    return std::isfinite(value) ? value : kNaN;
}

/// Bins of a spectrum that may be shorter than the range, as when it is missing.
std::span<const double> Cut(std::span<const double> values, BinRange range) {
    return range.last <= values.size() ? values.subspan(range.first, range.last - range.first)
                                       : std::span<const double>();
}

double CircularMean(std::span<const double> angles) {
    double east = 0, north = 0;
    for (const double angle : angles) {
        east += std::cos(angle);
        north += std::sin(angle);
    }
    const bool directed = std::hypot(east, north) > kNoDirection * static_cast<double>(angles.size());
    return directed ? std::atan2(north, east) : kNaN;
}

bool HasWeight(std::span<const double> weights) {
    const double sum = Sum(weights);
    return std::isfinite(sum) && sum > 0;
}

double PeakFrequency(std::span<const double> values, std::uint32_t first, double resolution) {
    if (!HasWeight(values)) {
        return kNaN;
    }
    const auto peak = std::max_element(values.begin(), values.end()) - values.begin();
    return (static_cast<double>(first) + static_cast<double>(peak)) * resolution;
}

double Centroid(std::span<const double> weights, std::uint32_t first, double resolution) {
    if (!HasWeight(weights)) {
        return kNaN;
    }
    double moment = 0;
    for (std::size_t i = 0; i < weights.size(); ++i) {
        moment += static_cast<double>(i) * weights[i];
    }
    return (static_cast<double>(first) + moment / Sum(weights)) * resolution;
}

double SpectralEdge(std::span<const double> power, std::uint32_t first, double resolution) {
    if (!HasWeight(power)) {
        return kNaN;
    }
    const double wanted = kEdgeShare * Sum(power);
    double below = 0;
    for (std::size_t i = 0; i < power.size(); ++i) {
        if (below + power[i] >= wanted) {
            const double inside = i == 0 ? 0.0 : (wanted - below) / power[i] - 1.0;
            return (static_cast<double>(first) + static_cast<double>(i) + inside) * resolution;
        }
        below += power[i];
    }
    return kNaN;
}

double OfPower(const MeasureInput& input, BinRange range, Measure measure) {
    const std::span<const double> values = Cut(input.values, range);
    const std::span<const double> power = Cut(input.power, range);
    if (values.empty() || power.empty()) {
        return kNaN;
    }
    switch (measure) {
    case Measure::Abs: {
        const double total = Sum(power) * input.resolution_hz;
        return input.entity == Type::Amplitude ? std::sqrt(total) : total;
    }
    case Measure::Mean:
        return Mean(values);
    case Measure::Rel: {
        const auto bins = static_cast<std::uint32_t>(input.power.size());
        const BinRange total = BandBins(input.total_lo, input.total_hi, input.resolution_hz, bins);
        return 100.0 * Sum(power) / Sum(Cut(input.power, total));
    }
    case Measure::PeakF:
        return PeakFrequency(values, range.first, input.resolution_hz);
    case Measure::MeanF:
        return Centroid(power, range.first, input.resolution_hz);
    case Measure::Peak:
        return std::isfinite(Sum(values)) ? *std::max_element(values.begin(), values.end()) : kNaN;
    case Measure::SEF95:
        return SpectralEdge(power, range.first, input.resolution_hz);
    case Measure::CV:
        return 100.0 * input.abs_sd / input.abs_mean;
    }
    return kNaN;
}

double OfCoherence(const MeasureInput& input, BinRange range, Measure measure) {
    const std::span<const double> values = Cut(input.values, range);
    if (values.empty()) {
        return kNaN;
    }
    switch (measure) {
    case Measure::Abs:
    case Measure::Mean:
        return Mean(values);
    case Measure::Rel:
        return 100.0 * Mean(values);
    case Measure::PeakF:
        return PeakFrequency(values, range.first, input.resolution_hz);
    case Measure::MeanF:
        return Centroid(values, range.first, input.resolution_hz);
    case Measure::Peak:
        return std::isfinite(Sum(values)) ? *std::max_element(values.begin(), values.end()) : kNaN;
    case Measure::SEF95:
    case Measure::CV:
        break;
    }
    return kNaN;
}

double OfPhase(const MeasureInput& input, BinRange range, Measure measure) {
    const std::span<const double> values = Cut(input.values, range);
    const bool asked = measure == Measure::Abs || measure == Measure::Mean;
    return asked && !values.empty() ? CircularMean(values) : kNaN;
}

} // namespace

BinRange BandBins(double lo_hz, double hi_hz, double resolution_hz, std::uint32_t bins) {
    if (!SPECT::IsBandDefined(lo_hz, hi_hz) || !(resolution_hz > 0)) {
        return {};
    }
    // The first bin at or above a frequency. The quotient may be off by a rounding, the product decides.
    const auto firstAtOrAbove = [&](double hz) {
        auto bin = static_cast<std::uint32_t>(
            std::clamp(std::ceil(hz / resolution_hz), 0.0, static_cast<double>(bins)));
        while (bin > 0 && (bin - 1) * resolution_hz >= hz) {
            --bin;
        }
        while (bin < bins && bin * resolution_hz < hz) {
            ++bin;
        }
        return bin;
    };
    const BinRange range{firstAtOrAbove(lo_hz), firstAtOrAbove(hi_hz)};
    return range.first < range.last ? range : BinRange{};
}

double BandMeasure(const MeasureInput& input, double lo_hz, double hi_hz, SPECT::Meas::Type measure) {
    const auto bins = static_cast<std::uint32_t>(input.values.size());
    const BinRange range = BandBins(lo_hz, hi_hz, input.resolution_hz, bins);
    if (range.first == range.last) {
        return kNaN;
    }
    switch (input.entity) {
    case Type::Amplitude:
    case Type::Power:
        return FiniteOrNaN(OfPower(input, range, measure));
    case Type::Coherence:
        return FiniteOrNaN(OfCoherence(input, range, measure));
    case Type::Phase:
        return FiniteOrNaN(OfPhase(input, range, measure));
    }
    return kNaN;
}

} // namespace orvanta::spectral
