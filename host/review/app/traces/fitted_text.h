// SPDX-License-Identifier: GPL-3.0-or-later
// Texts cut to the room they have.
#pragma once

#include "host/toolkit/dc.h"

#include <string>

namespace orvanta::review {

/// The text, or as much of its beginning as fits \p width pixels with "…" behind it; empty when not even that
/// fits.
std::string FittedText(const owl::TDC& dc, const std::string& text, int width);

} // namespace orvanta::review
