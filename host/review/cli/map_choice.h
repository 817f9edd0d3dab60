// SPDX-License-Identifier: GPL-3.0-or-later
// What a map shows, as BAND:MEASURE.
#pragma once

#include "spectra_contract/spectra_types.h"

#include <string>
#include <vector>

namespace orvanta::cli {

/// Each by its name, case ignored, or by its number from 0, such as "Alpha:Abs" or "2:0". A name comes before
/// a number. \throws UsageError that lists what there is
SPECT::PlotSet ParseMap(const std::string& text);

/// "LO:HI", two finite numbers, the second above the first: a scale for all maps.
/// \throws UsageError
void ParseScaleRange(const std::string& text, std::vector<SPECT::PlotSet>& maps);

/// The first measure of every band that is defined.
std::vector<SPECT::PlotSet> MapsOfAllBands();

} // namespace orvanta::cli
