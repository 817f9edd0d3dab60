// SPDX-License-Identifier: GPL-3.0-or-later
// Measures of one band.
#pragma once

#include "spectra_contract/api.h"
#include "spectra_contract/spectra_types.h"

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

/// The measure of low <= f < high; NaN when not computable (band not wider than 0.01 Hz, no bin inside, zero
/// total).
ORVANTA_API double BandMeasure(const MeasureInput& input, double lo_hz, double hi_hz,
                               SPECT::Meas::Type measure);

} // namespace orvanta::spectral
