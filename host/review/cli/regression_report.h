// SPDX-License-Identifier: GPL-3.0-or-later
// The results of a regression for people.
#pragma once

#include "spectra_contract/recording.h"
#include "spectra_contract/spect_macro_result.h"

#include <list>
#include <string>

namespace orvanta::cli {

/// What was fitted and the ten pairs of sensor and frequency with the largest |R|.
/// \param analyses the main one first
std::string ToText(const EEGFileInfoType& recording, const std::list<SpectMacroResult*>& analyses,
                   const std::list<BCIReg>& results);

} // namespace orvanta::cli
