// SPDX-License-Identifier: GPL-3.0-or-later
// Which EEG sensors may be combined.
#pragma once

#include "spectra_contract/sensor.h"

#include <memory>
#include <string>
#include <vector>

namespace orvanta::signal {

/// The unit of values without calibration.
constexpr const char* kRawUnit = "raw";

/// The difference of the two is that of their electrodes: both were recorded against the same reference, as
/// far as the labels tell, and neither is in raw values.
bool Comparable(const SensorType& a, const SensorType& b);

/// When electrodes were recorded against different references, a line in \p remarks that names them.
void ReportReferences(const std::vector<std::shared_ptr<SensorType>>& sensors,
                      std::vector<std::string>& remarks);

} // namespace orvanta::signal
