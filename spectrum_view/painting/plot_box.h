// SPDX-License-Identifier: GPL-3.0-or-later
// Where a plot lies in its slot.
#pragma once

#include "host/toolkit/geometry.h"

namespace orvanta::spectrum_view {

// Shares of the slot's width and height.
inline constexpr double kPlotLeft = 0.1;   ///< origin of the frequency axis
inline constexpr double kPlotRight = 0.98; ///< right end of the axis
inline constexpr double kPlotTop = 0.05;
inline constexpr double kPlotBottom = 0.92; ///< baseline
inline constexpr double kPlotWidth = kPlotRight - kPlotLeft;
inline constexpr double kPlotHeight = kPlotBottom - kPlotTop;

/// Pixel column at a share of the slot's width, truncated.
int SlotX(const owl::TRect& slot, double share);
/// Pixel row at a share of the slot's height, truncated.
int SlotY(const owl::TRect& slot, double share);

/// Left end of the axis, on the baseline.
owl::TPoint AxisOrigin(const owl::TRect& slot);
/// From the axis' origin to its right end, from the top of the plot to the baseline.
owl::TRect PlotArea(const owl::TRect& slot);

} // namespace orvanta::spectrum_view
