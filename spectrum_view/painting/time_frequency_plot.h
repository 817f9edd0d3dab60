// SPDX-License-Identifier: GPL-3.0-or-later
// The time/frequency plot.
#pragma once

#include "host/toolkit/dc.h"
#include "spectrum_view/painting/plot_input.h"

namespace orvanta::spectrum_view {

/// The values as pixels: time from left to right, frequency upwards, colours of ColorMap over the vertical
/// range. A pixel shows the mean of the epochs whose middle and of the bins whose frequency lie in it, else
/// the epoch and the bin it lies in. White where there is no epoch or no number.
owl::TImage TimeFrequencyImage(const OverTimeInput& input, int width, int height);

/// Paints a slot: frame, picture, colour bar with numbers and unit, axes and label as far as they fit. The
/// picture has as many pixels as the plot. Only the frame, and the notice, when there is no row or no range.
void PaintTimeFrequency(owl::TDC& dc, const OverTimeInput& input);

} // namespace orvanta::spectrum_view
