// SPDX-License-Identifier: GPL-3.0-or-later
// The band of one standard deviation about a mean curve.
#pragma once

#include "spectrum_view/painting/mean_curve.h"

#include <span>
#include <vector>

namespace orvanta::spectrum_view {

/// Outlines of mean ± SD over the shown bins: along the upper edge to the right, back along the lower. Cut at
/// the baseline; interrupted where mean or SD is not computable.
std::vector<std::vector<owl::TPoint>> SdBand(const CurveGeometry& geometry, std::span<const double> mean,
                                             std::span<const double> sd);

} // namespace orvanta::spectrum_view
