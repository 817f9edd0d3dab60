// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers as text in files: no locale, shortest form that reads back to the same value.
#pragma once

#include "spectra_contract/api.h"

#include <string>

namespace orvanta::spectral {

/// The shortest text that reads back to \p value; "n/a" for a value that is not finite.
ORVANTA_API std::string NumberText(double value);
/// Appends what NumberText returns.
ORVANTA_API void AppendNumber(std::string& text, double value);

} // namespace orvanta::spectral
