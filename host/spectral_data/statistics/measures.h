// SPDX-License-Identifier: GPL-3.0-or-later
// Measures of one band.
#pragma once

#include "host/spectral_data/engine/engine.h"
#include "spectra_contract/api.h"
#include "spectra_contract/spectra_types.h"

#include <cstdint>
#include <span>

namespace orvanta::spectral {

/// A spectrum over bins of equal width, for measuring. All of one trace.
struct MeasureInput {
    SPECT::Entity::Type entity = SPECT::Entity::Type::Power;
    double resolution_hz = 0;
    std::span<const double> values; ///< mean of the entity per bin
    std::span<const double> power;  ///< mean power density per bin, µV²/Hz (for entities 0 and 1)
    double total_lo = 0, total_hi = 0;
    double abs_mean = 0, abs_sd = 0; ///< over epochs, of the band's Abs; NaN when not known (for CV)
};

/// The bins with lo <= k·resolution < hi among bins 0 … bins−1; empty (first = last) when the band is not
/// wider than 0.01 Hz, reversed, beyond the last bin, between two bins, or not a number.
ORVANTA_API BinRange BandBins(double lo_hz, double hi_hz, double resolution_hz, std::uint32_t bins);

/// The measure over the bins of BandBins, f[k] = k·Δf:
///
/// | measure | power, amplitude                                           | coherence | phase         |
/// |---------|------------------------------------------------------------|-----------|---------------|
/// | Abs     | ∑P·Δf in µV²; for amplitude its square root, µV            | mean      | circular mean |
/// | Mean    | mean of the values, entity's unit                          | mean      | circular mean |
/// | Rel     | 100·∑P / ∑P over the total band, %                         | 100·mean  | NaN           |
/// | PeakF   | f of the largest value, the lowest of equals, Hz           | same      | NaN           |
/// | MeanF   | ∑f·P / ∑P, Hz                                              | by value  | NaN           |
/// | Peak    | the largest value, entity's unit                           | same      | NaN           |
/// | SEF95   | where the running sum of P, a straight line from one bin's | NaN       | NaN           |
/// |         | frequency to the next, reaches 95 % of the band's sum, Hz  |           |               |
/// | CV      | 100·abs_sd/abs_mean, %                                     | NaN       | NaN           |
///
/// The circular mean is arg ∑exp(i·φ), NaN when the directions cancel. NaN when there is no bin, when a value
/// that is used is not finite, and where a frequency or share is asked of bins that sum to 0.
ORVANTA_API double BandMeasure(const MeasureInput& input, double lo_hz, double hi_hz,
                               SPECT::Meas::Type measure);

} // namespace orvanta::spectral
