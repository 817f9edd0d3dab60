// SPDX-License-Identifier: GPL-3.0-or-later
// A recording whose regression is known beforehand.
#pragma once

#include "host/signal_base/recording.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_macro.h"
#include "spectra_contract/spectra_mgr.h"

#include <memory>
#include <string>

namespace orvanta::test {

/// 64 Hz, five seconds each of the states "c-1", "c1", "c3" and "c5". At O1 a sine of 10 Hz: in epochs of 1 s
/// its power at 10 Hz is 0.1, 1, 10 and 100 µV²/Hz, so that for these contrast values
///     contrast = 2 · log10 power + 1, R = 1.
/// At O2 the same with the powers 100, 10, 1 and 0.1, so that contrast = −2 · log10 power + 3, R = −1. Cz is
/// flat: it has no power and nothing to fit.
/// \param names of the three sensors
std::unique_ptr<EEGFileInfoType> KnownSlopeRecording(const std::string& first = "O1",
                                                     const std::string& second = "O2",
                                                     const std::string& flat = "Cz");

/// Whole epochs of 1 s in the state of this contrast value, which is set.
SpectraMacro KnownSlopeMacro(int contrast);

/// Appends the analysis, computed, and named after its state.
SpectMacroResult* AddKnownSlope(SpectraMgr& manager, EEGFileInfoType& recording, int contrast);

} // namespace orvanta::test
