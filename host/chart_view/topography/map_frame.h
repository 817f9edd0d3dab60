// SPDX-License-Identifier: GPL-3.0-or-later
// What stands around a map: its title and its scale.
#pragma once

#include "host/chart_view/topography/map_look.h"

#include <string>

namespace orvanta::chart {

/// Where the parts of a map lie. A part without room is empty.
struct MapFrame {
    owl::TRect title;
    owl::TRect body;    ///< for the head
    owl::TRect scale;   ///< for bar, numbers and unit
    bool below = false; ///< the scale lies below the head, not at its right
};

/// Title above; the scale where it leaves the larger head. \param titleHeight 0 for none
/// \param scale no width for none
ORVANTA_API MapFrame LayOutMap(const owl::TRect& area, int titleHeight, const ScaleRoom& scale);

/// Selects the font, lays the map out and paints its title.
/// \param empty nothing is known, which has no scale
ORVANTA_API MapFrame BeginMap(owl::TDC& dc, const owl::TRect& area, const std::string& title,
                              const ColorScale& scale, bool empty, const MapLook& look);

/// What a title has of a map of this size, pixels.
ORVANTA_API owl::TSize TitleRoom(const owl::TSize& map);

/// At the side of the head and as high, or right below it; nothing without room.
ORVANTA_API void PaintScaleOf(owl::TDC& dc, const MapFrame& frame, const owl::TRect& head,
                              const Colors& colors, const ColorScale& scale, const MapLook& look);

/// In the middle of the area, in as many lines as it takes.
ORVANTA_API void PaintNotice(owl::TDC& dc, const owl::TRect& area, const std::string& text,
                             const MapLook& look);

} // namespace orvanta::chart
