// SPDX-License-Identifier: GPL-3.0-or-later
// Ticks and numbers along the axes of a mean plot.
#pragma once

#include "host/toolkit/dc.h"
#include "spectrum_view/painting/frequency_axis.h"
#include "spectrum_view/painting/text_fit.h"
#include "spectrum_view/painting/vertical_range.h"

#include <functional>
#include <string>
#include <vector>

namespace orvanta::spectrum_view {

inline constexpr int kTickLength = 4;
/// Numbers are not made smaller than this, pixels.
inline constexpr int kSmallestNumbers = 9;

/// One axis.
struct AxisLayout {
    std::vector<int> ticks; ///< pixel columns or rows
    PlacedTexts numbers;    ///< at the ticks, "%.1f"; empty when there is no room
    std::string multiplier; ///< of the numbers, "×10⁻³"; empty for 1

    bool operator==(const AxisLayout&) const = default;
};

/// The frequency axis: as many round numbers as fit side by side with their upper edge at row \p numbersTop,
/// "Hz" behind them when it fits, too. The axis must be drawable.
AxisLayout FrequencyAxisLayout(const owl::TRect& slot, const FrequencyAxis& axis, int numbersTop,
                               const TextExtent& extent);

/// The vertical axis: round numbers, or the range's divisions, as many as fit one over the other between the
/// slot's edge and the axis. Numbers that one decimal cannot tell apart or that are too long for the margin
/// are shown as multiples of a power of 1000. The range must be drawable.
AxisLayout VerticalAxisLayout(const owl::TRect& slot, const VerticalRange& range, const TextExtent& extent);

/// Upper edge of the numbers below the plot, under ticks and marks and clear of the vertical axis' lowest
/// one. \param marksHeight rows below the baseline that significance marks take
int NumbersTop(const owl::TRect& slot, int textHeight, int marksHeight);

/// The font, made smaller as far as the margin below the plot asks for it.
/// \param heightOf height of a line in a font
owl::TFont NumbersFont(const owl::TRect& slot, owl::TFont font, int marksHeight,
                       const std::function<int(const owl::TFont&)>& heightOf);

/// Row of a value on the axis.
int ValueY(const owl::TRect& slot, const VerticalRange& range, double value);

/// Where texts may lie: the slot without its frame and a pixel of air.
owl::TRect TextArea(const owl::TRect& slot);

} // namespace orvanta::spectrum_view
