// SPDX-License-Identifier: GPL-3.0-or-later
// Where the parts of a compressed array or a time/frequency plot lie in their slot.
#pragma once

#include "spectrum_view/painting/plot_input.h"
#include "spectrum_view/painting/text_fit.h"

#include <vector>

namespace orvanta::spectrum_view {

/// Share of a compressed array's height over which its rows stand; the rest is the height of the range's
/// maximum on the newest row.
inline constexpr double kRowsShare = 0.7;

struct OverTimeLayout {
    owl::TRect plot;         ///< right of and above the axes
    std::vector<int> xTicks; ///< pixel columns
    std::vector<int> yTicks; ///< pixel rows
    PlacedTexts label;
    PlacedTexts side;    ///< numbers left of the plot
    PlacedTexts below;   ///< numbers below it, and "Hz"
    owl::TRect colorBar; ///< empty for none
    std::vector<int> barTicks;
    PlacedTexts barNumbers; ///< and the unit

    bool operator==(const OverTimeLayout&) const = default;
};

/// Times beside the rows, frequencies below. The plot has the margins of a mean plot, wider where texts need
/// it; where less than half of the slot would be left, or texts would touch or be cut, the colour bar and the
/// numbers of the axes go first, then the label. The axis must be drawable.
OverTimeLayout CompressedArrayLayout(const OverTimeInput& input, const TextExtent& extent);

/// Frequencies beside the picture, times below, the colour bar to the right; as for the compressed array. The
/// axis and the range must be drawable.
OverTimeLayout TimeFrequencyLayout(const OverTimeInput& input, const TextExtent& extent);

/// The slot whose plot area begins and ends in the columns and rows of \p plot, up to a pixel.
owl::TRect SlotAround(const owl::TRect& plot);

/// Pixels of a compressed array's rows, from the begin to the end of the time axis.
int RowsHeight(const owl::TRect& plot);

/// "%.*f" with as many decimals as tell multiples of \p step apart; "%.3g" where that would be too long.
std::string NumberText(double value, double step);

/// Axes with their ticks, the label and all numbers, in the selected font.
void PaintOverTimeAxes(owl::TDC& dc, const OverTimeLayout& layout);

} // namespace orvanta::spectrum_view
