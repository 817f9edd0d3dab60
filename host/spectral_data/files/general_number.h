// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers in general format, quickly, for files of millions of them.
#pragma once

#include "spectra_contract/api.h"

#include <cstddef>

namespace orvanta::spectral {

/// The longest text is "-2.22507e-308".
inline constexpr std::size_t kGeneralWidth = 13;

/// Writes \p value as C's "%.6g" does in the "C" locale, correctly rounded, halves to even; "n/a" when it is
/// not finite. \param out room for kGeneralWidth characters \return the end of the text, which is not
/// terminated
ORVANTA_API char* WriteGeneral(char* out, double value);

} // namespace orvanta::spectral
