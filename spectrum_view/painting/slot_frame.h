// SPDX-License-Identifier: GPL-3.0-or-later
// What every slot has, whatever is plotted in it.
#pragma once

#include "host/toolkit/dc.h"
#include "spectrum_view/painting/plot_input.h"
#include "spectrum_view/painting/text_fit.h"

#include <string>

namespace orvanta::spectrum_view {

inline constexpr owl::TColor kFrameGrey = owl::Rgb(200, 200, 200);
inline constexpr owl::TColor kAxisGrey = owl::Rgb(110, 110, 110);
inline constexpr owl::TColor kTextGrey = owl::Rgb(60, 60, 60);
inline constexpr owl::TColor kQuietGrey = owl::Rgb(110, 110, 110);

/// Columns kept free between two texts.
inline constexpr int kTextGap = 4;

/// Fills the slot white, sets the clip to it, draws its frame and selects its font. Where there is a notice,
/// writes it in the middle and the label above. The clip stays for the plot; take it off with ClearClip.
void PaintSlotFrame(owl::TDC& dc, const SlotFrame& frame);

/// Extents of texts in the font that is selected; the surface must outlive it.
TextExtent ExtentIn(const owl::TDC& dc);

/// Upper edge of the row of the label: the middle of the margin above the plot, or the slot's upper edge when
/// the margin is too low.
int LabelTop(const owl::TRect& slot, int textHeight);

/// The label over the right end of the plot; without its unit where that is too wide; nothing where it is
/// switched off, empty or does not fit at all.
PlacedTexts LabelOf(const SlotFrame& frame, const TextExtent& extent);

/// The notice in the middle of the slot, broken between words where it is too wide; nothing where a word is.
PlacedTexts NoticeOf(const SlotFrame& frame, const TextExtent& extent);

/// Lays a veil of white over the plot under texts that reach into it.
void Veil(owl::TDC& dc, const owl::TRect& slot, const PlacedTexts& texts);

/// Draws texts that may lie over the plot, with a veil under them.
void PaintOverPlot(owl::TDC& dc, const owl::TRect& slot, const PlacedTexts& texts);

} // namespace orvanta::spectrum_view
