// SPDX-License-Identifier: GPL-3.0-or-later
// Where an axis has its ticks.
#pragma once

#include <vector>

namespace orvanta::spectrum_view {

/// The multiples of 1, 2 or 5 times a power of ten from \p min to \p max, as many as fit but at most \p most;
/// none when there is no range, fewer than two fit or numbers of that size cannot be told apart there.
std::vector<double> RoundTicks(double min, double max, int most);

/// Both ends and the points that divide the range in \p divisions equal parts.
std::vector<double> DividingTicks(double min, double max, int divisions);

} // namespace orvanta::spectrum_view
