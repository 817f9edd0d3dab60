// SPDX-License-Identifier: GPL-3.0-or-later
// The values of a map.
#pragma once

#include "spectra_contract/sensor.h"
#include "spectra_contract/spectra_types.h"

#include <vector>

class SpectMacroResult;
class SpectrumSingle;

namespace orvanta::spectral_maps {

/// The measure of a spectrum's band; NaN where it is not computable. \param spectrum null counts as 0
double MeasureOf(const SpectrumSingle* spectrum, const SPECT::PlotSet& plotSet);

/// Over all epochs of an analysis, one value for each sensor.
std::vector<double> MeanValues(const SpectMacroResult& analysis, const SensorList& sensors,
                               const SPECT::PlotSet& plotSet);

/// Of one epoch.
std::vector<double> EpochValues(const SpectMacroResult& analysis, std::uint64_t epoch,
                                const SensorList& sensors, const SPECT::PlotSet& plotSet);

} // namespace orvanta::spectral_maps
