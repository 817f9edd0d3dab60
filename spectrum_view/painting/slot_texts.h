// SPDX-License-Identifier: GPL-3.0-or-later
// All texts of a mean plot, as far as there is room for them.
#pragma once

#include "spectrum_view/painting/axes.h"
#include "spectrum_view/painting/plot_input.h"
#include "spectrum_view/painting/text_fit.h"

namespace orvanta::spectrum_view {

/// What an entry of the legend explains, and so the sign before it.
enum class LegendSign { None, Mark, RatioLine };

struct SlotTexts {
    PlacedTexts label;
    AxisLayout frequency;
    AxisLayout vertical;
    PlacedTexts caption; ///< over the vertical axis: its multiplier, and its unit where the label has none
    PlacedTexts unity;   ///< "1" at the end of the line of equal spectra
    PlacedTexts legend;  ///< rectangles with room for the sign before the text
    std::vector<LegendSign> signs; ///< one per entry of the legend

    bool operator==(const SlotTexts&) const = default;
};

/// Columns of a sign and the gap behind it.
inline constexpr int kSignWidth = 16;

/// The texts that fit, none over another, none cut. Where room is short the legend goes first, then the
/// numbers of the axes, then the label; the measures box stays. The axis of the first curve and the range
/// must be drawable.
/// \param extent in the font of the slot \param numbersExtent in the font of the numbers
SlotTexts TextsOf(const PlotInput& plot, const TextExtent& extent, const TextExtent& numbersExtent);

/// Rows below the baseline that significance marks take.
int MarksRows(const PlotInput& plot);

} // namespace orvanta::spectrum_view
