// SPDX-License-Identifier: GPL-3.0-or-later
// Which of a recording's signals are what.
#pragma once

#include "host/signal_base/recording_data.h"
#include "spectra_contract/sensor.h"

#include <memory>
#include <string>
#include <vector>

namespace orvanta::signal {

/// One sensor per signal, in file order.
///
/// Labels decide first: electrodes of the 10-05 system, prefixes such as "EEG", words such as "ECG" or
/// "Resp". Rows of contacts ("LA1", "LA2", ...) are intracranial when their stem has two letters or more,
/// unplaced when it has one (caps numbered by bundle use such names too). When no label at all is known,
/// every signal with a voltage unit, or with no usable unit, is unplaced EEG; beside known labels so is a
/// voltage whose label is letters and a number (a contact, "LA1", or a difference of two). A label that names
/// EEG in an unknown unit is EEG in µV, in the unit of another quantity (mmHg, %) it is none. Names are
/// unique, case ignored.
/// \param repairs gets a line for each unit that had to be guessed, each electrode whose unit makes it no EEG
/// and each name that had to be changed
std::vector<std::shared_ptr<SensorType>> MakeSensors(const RecordingData& data,
                                                     std::vector<std::string>& repairs);

/// Microvolts in the recorded unit of an EEG signal; 1 where the file gives no usable unit or calibration.
double EegMicrovolts(const SignalHeader& header);

} // namespace orvanta::signal
