// SPDX-License-Identifier: GPL-3.0-or-later
// The montage that an argument names.
#pragma once

#include "spectra_contract/recording.h"

#include <string>

namespace orvanta::cli {

/// Makes a montage current: one of the recording's list; a montage file, of which the first montage is taken,
/// or "FILE:NAME" for another one; one of the user's own by its name; "Reference NAME" for any electrode.
/// \throws UsageError, RecordingError
void ChooseMontage(EEGFileInfoType& recording, const std::string& argument);

/// The montage file behind an argument; empty when it names none.
std::string MontageFileOf(const EEGFileInfoType& recording, const std::string& argument);

} // namespace orvanta::cli
