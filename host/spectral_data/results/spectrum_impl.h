// SPDX-License-Identifier: GPL-3.0-or-later
// What stands behind a spectrum.
#pragma once

#include "host/spectral_data/results/analysis.h"
#include "spectra_contract/spectrum.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

/// A spectrum's numbers by entity; NaN where there are none.
struct SpectrumSingle::Impl {
    virtual ~Impl() = default;

    virtual std::uint32_t Bins() const = 0;
    virtual double Resolution() const = 0;
    virtual double MeanAt(SPECT::Entity::Type entity, std::uint64_t bin) const = 0;
    virtual double SdAt(SPECT::Entity::Type entity, std::uint64_t bin) const = 0;
    /// Spread over epochs of a band's Abs.
    virtual orvanta::spectral::Spread AbsSpread(SPECT::Entity::Type entity, double lo, double hi) const = 0;

    /// The means of all bins; gathered when first asked for, since every measure asks again.
    std::span<const double> Mean(SPECT::Entity::Type entity) const;

private:
    mutable std::array<std::vector<double>, SPECT::Entity::Count> means_;
};

namespace orvanta::spectral {

/// Edges in Hz of band 0 to 7, -1 for the total band; nothing for another number.
std::optional<std::pair<double, double>> BandEdges(int band);

/// The spectrum of a trace over all epochs.
std::shared_ptr<const SpectrumSingle::Impl> MeanSpectrum(std::shared_ptr<const Analysis> analysis,
                                                         TraceRow trace);
/// A value of a single epoch in the entity's unit, from its power in µV²/Hz; NaN for coherence and phase.
double EpochValue(SPECT::Entity::Type entity, float power);
/// The spectrum of a single epoch.
std::shared_ptr<const SpectrumSingle::Impl> EpochSpectrum(std::span<const float> power, double resolution);

} // namespace orvanta::spectral
