// SPDX-License-Identifier: GPL-3.0-or-later
// What maps show, as it is kept in the user's settings.
#pragma once

#include "spectra_contract/api.h"
#include "spectra_contract/spectra_types.h"

#include <string>

class UserType;

namespace orvanta::chart {

/// Reads "SpectralBand", "SpectralMeas", "bAutoScale", "bZeroMin", "LoScale" and "HiScale" of a section. What
/// is missing, and a band or measure that does not exist, is as in a new PlotSet; every number but 0 is true.
ORVANTA_API SPECT::PlotSet LoadPlotSet(const UserType& user, const std::string& section);

/// Writes the same keys in this order.
ORVANTA_API void SavePlotSet(UserType& user, const std::string& section, const SPECT::PlotSet& plotSet);

/// Where the map of this number has its own: "VIEW_Map_NUMBER".
ORVANTA_API std::string SectionOfMap(const std::string& view, int map);

} // namespace orvanta::chart
