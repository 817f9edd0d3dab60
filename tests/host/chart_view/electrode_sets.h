// SPDX-License-Identifier: GPL-3.0-or-later
// Recordings with the usual numbers of electrodes.
#pragma once

#include "spectra_contract/recording.h"

#include <memory>
#include <string>
#include <vector>

namespace orvanta::test {

/// 21 (10-20), 32 and 64 (10-10), 128 and 256 (10-05) electrode names.
std::vector<std::string> ElectrodeSet(std::size_t count);

/// A recording with a sensor of each name.
std::unique_ptr<EEGFileInfoType> RecordingOf(const std::vector<std::string>& electrodes);

/// Its EEG sensors.
SensorList EegSensors(const EEGFileInfoType& recording);

} // namespace orvanta::test
