// SPDX-License-Identifier: GPL-3.0-or-later
// What a page shows besides its slots.
#pragma once

#include "host/chart_view/view_regions.h"
#include "host/toolkit/dc.h"

#include <span>
#include <string>

namespace orvanta::spectrum_view {

/// Head, nose and ears, behind the slots.
void PaintHead(owl::TDC& dc, const HeadOutline& head, owl::TColor color);

/// The title in the lower left corner: below the cells of a grid, which leave one line of the font free;
/// beside the slots on a scalp, in up to four lines. Left out where it is too long or would touch a slot.
void PaintTitle(owl::TDC& dc, const owl::TRect& area, std::span<const owl::TRect> slots,
                const std::string& title, const owl::TFont& font, owl::TColor color);

/// One quiet line on a white plate in the middle of the area; broken at blanks where it is too long, left out
/// where it does not fit even so.
void PaintNotice(owl::TDC& dc, const owl::TRect& area, const std::string& notice, const owl::TFont& font);

} // namespace orvanta::spectrum_view
