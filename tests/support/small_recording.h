// SPDX-License-Identifier: GPL-3.0-or-later
// A recording small enough to work its spectra out with a script.
#pragma once

#include "host/signal_base/recording.h"
#include "spectra_contract/montage.h"
#include "spectra_contract/spectra_macro.h"
#include "tests/support/memory_source.h"

#include <memory>
#include <string>
#include <vector>

namespace orvanta::test {

/// Whole numbers without a pattern, in µV: (7i² + 3i) mod 23 − 11, (5i² + 11i) mod 19 − 9, (i² + 13i) mod 17
/// − 8.
std::vector<double> Fp1Values(std::size_t count);
std::vector<double> F3Values(std::size_t count);
std::vector<double> CzValues(std::size_t count);

/// Fp1, F3 and Cz at 8 Hz.
signal::RecordingData SmallData(std::size_t seconds = 5,
                                const std::vector<signal::Annotation>& annotations = {},
                                const std::vector<Gap>& gaps = {});
std::unique_ptr<EEGFileInfoType> SmallRecording(std::size_t seconds = 5,
                                                const std::vector<signal::Annotation>& annotations = {},
                                                const std::vector<Gap>& gaps = {});

/// Windows of 1 s with the given taper and overlap over all of the recording.
SpectraMacro SmallMacro(const std::string& taper = "Hanning", unsigned overlap = 50);

/// A user montage given by its lines, such as "Fp1-F3 = +Fp1 -F3".
MontageType MontageOf(const EEGFileInfoType& recording, const std::string& lines);

/// The sensor; a missing one fails the test and ends it.
SensorType* SensorOf(const EEGFileInfoType& recording, const std::string& name);

} // namespace orvanta::test
