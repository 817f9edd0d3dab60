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
/// Pixels of a tick: shorter in a low slot, whose margin is needed for the numbers.
int TickLengthIn(const owl::TRect& slot);
/// Numbers are not made smaller than this, pixels.
inline constexpr int kSmallestNumbers = 9;

/// One axis.
struct AxisLayout {
    std::vector<int> ticks; ///< pixel columns or rows
    PlacedTexts numbers;    ///< at the ticks, "%.1f"; empty when there is no room
    std::string multiplier; ///< of the numbers, "×10⁻³"; empty for 1

    bool operator==(const AxisLayout&) const = default;
};

/// The frequency axis: as many round numbers as fit side by side with their digits' upper edge at row \p
/// numbersTop, "Hz" behind them when it fits, too. The axis must be drawable.
AxisLayout FrequencyAxisLayout(const owl::TRect& slot, const FrequencyAxis& axis, int numbersTop,
                               const TextExtent& extent);

/// The vertical axis: round numbers, or the range's divisions, as many as fit one over the other between the
/// slot's edge and the axis. Numbers that one decimal cannot tell apart or that are too long for the margin
/// are shown as multiples of a power of 1000; failing that, the ones too long are left out. The range must be
/// drawable.
AxisLayout VerticalAxisLayout(const owl::TRect& slot, const VerticalRange& range, const TextExtent& extent);

/// Upper edge of the numbers below the plot, under ticks and marks and clear of the vertical axis' lowest
/// one. \param digitsHeight rows of digits (DigitRowsOf)
/// \param marksHeight rows below the baseline that significance marks take
int NumbersTop(const owl::TRect& slot, int digitsHeight, int marksHeight);

/// The font, made smaller as far as the margins below the plot and, for numbers like "10.0", at its left ask
/// for it. \param extentIn extent of a text in a font
owl::TFont NumbersFont(const owl::TRect& slot, owl::TFont font, int marksHeight,
                       const std::function<owl::TSize(const owl::TFont&, std::string_view)>& extentIn);

/// Row of a value on the axis.
int ValueY(const owl::TRect& slot, const VerticalRange& range, double value);

/// Where texts may lie: the slot without its frame and a pixel of air.
owl::TRect TextArea(const owl::TRect& slot);

} // namespace orvanta::spectrum_view
