// SPDX-License-Identifier: GPL-3.0-or-later
// What stands around a map: its title and its scale.
#pragma once

#include "host/chart_view/topography/palettes.h"
#include "host/toolkit/dc.h"

#include <string>
#include <vector>

namespace orvanta::chart {

/// The scale beside a map.
struct ColorScale {
    double low = 0, high = 1;
    /// Evenly from the lower end to the upper one; a single one stands in the middle.
    std::vector<std::string> numbers = {};
    std::string unit = {}; ///< may be empty
};

/// How maps are drawn.
struct MapLook {
    bool electrodes = true;
    bool names = false;
    bool values = false;
    bool scale = true; ///< beside the map
    int contours = 6;  ///< lines between the ends of the scale
    owl::TFont font = {};
    owl::TColor textColor = owl::Rgb(0, 0, 0);
    owl::TColor backColor = owl::Rgb(255, 255, 255);
    double pixelRatio = 1; ///< device pixels to a logical one
};

/// Where the parts of a map lie. A part without room is empty.
struct MapFrame {
    owl::TRect title;
    owl::TRect body;  ///< for the head
    owl::TRect scale; ///< for bar, numbers and unit
};

/// Room of the scale, pixels.
ORVANTA_API owl::TSize ScaleExtent(const owl::TDC& dc, const ColorScale& scale);

/// Title above, scale at the right. \param lineHeight of the font \param scale its extent; no width for none
ORVANTA_API MapFrame LayOutMap(const owl::TRect& area, int lineHeight, const owl::TSize& scale,
                               bool withTitle);

/// Selects the font, lays the map out and paints its title.
/// \param empty nothing is known, which has no scale
ORVANTA_API MapFrame BeginMap(owl::TDC& dc, const owl::TRect& area, const std::string& title,
                              const ColorScale& scale, bool empty, const MapLook& look);

/// The part of the scale's room beside a head of this radius, as far as the scale needs no more.
ORVANTA_API owl::TRect Beside(const owl::TRect& scale, int middle, int radius);

/// Centred, elided.
ORVANTA_API void PaintTitle(owl::TDC& dc, const owl::TRect& area, const std::string& title,
                            owl::TColor color);
/// The unit above the bar, numbers at its right. \param area as high as there is room: the bar stands in its
/// middle
ORVANTA_API void PaintScale(owl::TDC& dc, const owl::TRect& area, const Colors& colors,
                            const ColorScale& scale, const MapLook& look);
/// In the middle of the area, in as many lines as it takes.
ORVANTA_API void PaintNotice(owl::TDC& dc, const owl::TRect& area, const std::string& text,
                             const MapLook& look);

} // namespace orvanta::chart
