// SPDX-License-Identifier: GPL-3.0-or-later
// Where the values of a recording's maps are.
#pragma once

#include "spectra_contract/sensor.h"

#include <vector>

class EEGFileInfoType;

namespace orvanta::review {

/// One for each EEG sensor, in the order of the maps' values.
std::vector<ElectInfo> MapElectrodes(const EEGFileInfoType& recording);

} // namespace orvanta::review
