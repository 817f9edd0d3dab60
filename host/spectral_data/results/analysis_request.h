// SPDX-License-Identifier: GPL-3.0-or-later
// The engine's orders for one analysis.
#pragma once

#include "host/spectral_data/results/analysis.h"

namespace orvanta::spectral {

/// Makes the request for an analysis with at least one epoch: all bins up to p/2, the moments that the
/// options ask for, the bands that are defined now, and every epoch's power when all of it fits the memory
/// budget. \throws std::runtime_error for an unknown taper, a sensor without a finite calibration, or sums
/// that would take more than 4 GiB
ORVANTA_API EngineRequest MakeRequest(const AnalysisInput& input, const MontageNodes& nodes);

/// The bins of the bands and the total band that are defined now; bands without a bin are left out.
std::vector<BinRange> DefinedBands(double resolution_hz, std::uint32_t bins);

} // namespace orvanta::spectral
