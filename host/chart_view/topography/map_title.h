// SPDX-License-Identifier: GPL-3.0-or-later
// Titles of maps, which have little room.
#pragma once

#include "host/toolkit/dc.h"
#include "spectra_contract/api.h"

#include <span>
#include <string>

namespace orvanta::chart {

/// How titles are written into their room.
struct TitleFit {
    int lines = 1;     ///< 2: they are broken behind " - "
    int percent = 100; ///< of the font's height
    bool whole = true; ///< none is cut

    bool operator==(const TitleFit&) const = default;
};

/// One way for all titles, so that maps beside each other look alike. What is too wide in one line is written
/// smaller, then in two lines, then both; only what is still too wide is cut.
/// \param room of a map, pixels
ORVANTA_API TitleFit FitTitles(owl::TDC& dc, const owl::TFont& font, std::span<const std::string> titles,
                               const owl::TSize& room);

/// Of a title; 0 where it would take more than its share of the room.
ORVANTA_API int TitleHeight(owl::TDC& dc, const owl::TFont& font, const TitleFit& fit, int room);

/// Centred; lines that are too wide are elided.
ORVANTA_API void PaintTitle(owl::TDC& dc, const owl::TRect& area, const std::string& title,
                            const owl::TFont& font, const TitleFit& fit, owl::TColor color);

} // namespace orvanta::chart
