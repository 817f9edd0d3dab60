// SPDX-License-Identifier: GPL-3.0-or-later
// Words of warning about events, on standard error.
#pragma once

#include "spectra_contract/recording.h"
#include "spectra_contract/spect_macro_result.h"

#include <string>

namespace orvanta::cli {

/// Names every label of the settings that the recording does not have, since a misspelt one would go
/// unnoticed.
void WarnOfLabels(const SpectraMacro& macro, const EventsManager& events);

/// Tells how much time two analyses share, and what that means for what is made of them.
void WarnOfSharedTime(const SpectMacroResult& main, const SpectMacroResult& secondary,
                      EEGFileInfoType& recording,
                      const std::string& consequence = "p holds only for analyses that share none");

} // namespace orvanta::cli
