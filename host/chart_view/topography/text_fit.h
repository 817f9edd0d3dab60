// SPDX-License-Identifier: GPL-3.0-or-later
// Texts in too little room.
#pragma once

#include "host/toolkit/dc.h"
#include "spectra_contract/api.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvanta::chart {

/// The text, or as much of its beginning as fits into the width in the selected font, with "…" behind it;
/// empty when not even one character fits.
ORVANTA_API std::string Elided(const owl::TDC& dc, std::string_view text, int width);

/// Lines that are no wider, broken at blanks; a word that is too wide is elided.
ORVANTA_API std::vector<std::string> Wrapped(const owl::TDC& dc, std::string_view text, int width);

} // namespace orvanta::chart
