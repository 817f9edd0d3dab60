// SPDX-License-Identifier: GPL-3.0-or-later
// The compressed spectral array.
#pragma once

#include "host/toolkit/dc.h"
#include "spectrum_view/painting/plot_input.h"

namespace orvanta::spectrum_view {

/// Rows of a compressed array are at least so many pixels apart: closer, quiet rows run into one dark plane.
inline constexpr int kRowPitch = 4;

/// Paints a slot: frame, tinted bands, one curve per row, the oldest at the bottom, each hidden where one
/// before it stands as high, then axes, times, frequencies and label as far as they fit. A row stands at the
/// time it begins, over the lower 70 % of the plot's height; the vertical range is the height of the rest.
/// Neighbouring epochs are averaged where rows would lie closer than kRowPitch; where there is no epoch or no
/// number nothing is drawn. Only the frame, and the notice, when there is no row or no range.
void PaintCompressedArray(owl::TDC& dc, const OverTimeInput& input);

} // namespace orvanta::spectrum_view
