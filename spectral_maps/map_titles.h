// SPDX-License-Identifier: GPL-3.0-or-later
// What stands above maps and their view.
#pragma once

#include "spectra_contract/spectra_types.h"

#include <cstdint>
#include <string>

class SpectraMgr;

namespace orvanta::spectral_maps {

/// Of a map in a view of so many maps across: "Band: X - Measure: Y", from five on "X - Y".
std::string MapTitle(const SpectraMgr& manager, const SPECT::PlotSet& plotSet, std::uint16_t across);

/// Of a new map and of a cartoon: "Band: X   Measure: Y", at most 127 bytes.
std::string WideTitle(const SpectraMgr& manager, const SPECT::PlotSet& plotSet);

/// Of the first step of a cartoon: "Time: X". \param time its text
std::string FirstStepTitle(const std::string& time);

/// Of a later step: "X - Y sec.".
std::string StepTitle(const std::string& start, const std::string& end);

/// Of a map that shows nothing.
inline constexpr const char* kNoTitle = "---";
/// Its unit.
inline constexpr const char* kNoUnit = "++";

} // namespace orvanta::spectral_maps
