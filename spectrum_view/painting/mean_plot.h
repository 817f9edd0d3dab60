// SPDX-License-Identifier: GPL-3.0-or-later
// Paints a slot with mean spectra.
#pragma once

#include "host/toolkit/dc.h"
#include "spectrum_view/painting/plot_input.h"

namespace orvanta::spectrum_view {

/// Paints the whole slot: frame, shading of the bands, SD bands, then every curve with its points and drop
/// lines, significance marks and ratio, at last axes and texts. The first curve comes out on top. Without a
/// curve, a range or a frequency axis only the frame is painted. Nothing leaves the slot; no clip is set
/// afterwards. Where a measures box follows, give its rectangle in plot.frame.box and paint it afterwards.
void PaintMeanPlot(owl::TDC& dc, const PlotInput& plot);

} // namespace orvanta::spectrum_view
