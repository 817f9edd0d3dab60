// SPDX-License-Identifier: GPL-3.0-or-later
// Texts of the view and its plots.
#pragma once

#include <optional>
#include <string>

namespace orvanta::spectrum_view {

/// "Fp1 (µV²/Hz) ", without a unit "Fp1".
std::string TraceLabel(const std::string& name, const std::string& unit);

/// "Recording (Spectrum 1) 118 epochs, 236.0 s", and " p-scale: 0.05" for a comparison.
/// \param interval the formatted text of the processed time
/// \param threshold of the comparison, as shown; none without a comparison
std::string ViewTitle(const std::string& recording, const std::string& main, const std::string& interval,
                      const std::optional<std::string>& threshold);

} // namespace orvanta::spectrum_view
