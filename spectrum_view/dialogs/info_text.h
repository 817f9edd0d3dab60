// SPDX-License-Identifier: GPL-3.0-or-later
// The report on a computation.
#pragma once

#include <string>

class SpectMacroResult;

namespace orvanta::spectrum_view {

/// Settings of the transform, and one line "index, tab, begin, tab, end" per epoch, the first with index 1.
/// Lines end with "\r\n". Empty for null and for an analysis without epochs.
std::string InfoText(const SpectMacroResult* result);

} // namespace orvanta::spectrum_view
