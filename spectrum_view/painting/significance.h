// SPDX-License-Identifier: GPL-3.0-or-later
// Marks and ratio of a comparison.
#pragma once

#include "host/toolkit/geometry.h"
#include "spectrum_view/painting/frequency_axis.h"

#include <array>
#include <span>
#include <vector>

namespace orvanta::spectrum_view {

/// Percent of the plot's height for a ratio of 1.
inline constexpr double kRatioScale = 20.0;

using Triangle = std::array<owl::TPoint, 3>;

/// Rows between the baseline and the lower edge of the marks, about a quarter of the margin below the plot.
int MarksHeight(const owl::TRect& slot);

/// A triangle pointing up to the baseline under each shown bin with p below the threshold. What is not
/// computable has none. The axis must be drawable.
std::vector<Triangle> SignificanceMarks(const owl::TRect& slot, const FrequencyAxis& axis,
                                        std::span<const double> p, double threshold);

/// Row of a ratio: top + trunc(height × (0.92 − ratio × 0.87 × kRatioScale / 100)).
int RatioY(const owl::TRect& slot, double ratio);

/// The ratio as steps, level over each shown bin; interrupted where it is not computable. The axis must be
/// drawable.
std::vector<std::vector<owl::TPoint>> RatioSteps(const owl::TRect& slot, const FrequencyAxis& axis,
                                                 std::span<const double> ratio);

} // namespace orvanta::spectrum_view
