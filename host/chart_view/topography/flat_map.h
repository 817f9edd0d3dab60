// SPDX-License-Identifier: GPL-3.0-or-later
// A head seen from above with the values of one moment or measure, and its scale.
#pragma once

#include "host/chart_view/topography/map_raster.h"
#include "host/chart_view/topography/palettes.h"
#include "host/toolkit/dc.h"

#include <span>
#include <string>
#include <vector>

namespace orvanta::chart {

/// The scale beside a map.
struct ColorScale {
    double low = 0, high = 1;
    std::string lowText, highText; ///< numbers of its ends
    std::string unit = {};         ///< may be empty
};

/// An electrode on a map.
struct MapElectrode {
    Place place;
    std::string name;
    std::string value; ///< as text
    bool used = true;  ///< its value went into the map
};

/// What one map is drawn from.
struct FlatMap {
    owl::TRect area;
    std::string title;
    const MapRaster& raster;         ///< as fine as the device
    std::span<const float> field;    ///< for each pixel of the raster; empty when nothing is known
    const std::vector<bool>& beyond; ///< the same: extrapolated
    const Colors& colors;
    ColorScale scale;
    std::vector<MapElectrode> electrodes;
    bool showElectrodes = true;
    bool showNames = false;
    bool showValues = false;
    bool showScale = true;
    int contours = 6; ///< number of levels between the ends of the scale
    owl::TFont font = {};
    owl::TColor textColor = owl::Rgb(0, 0, 0);
    owl::TColor backColor = owl::Rgb(255, 255, 255);
    std::string nothing = {}; ///< said in the middle of an empty map
};

/// Where the parts of a map lie. A part without room is empty.
struct FlatMapLayout {
    owl::TRect title;
    owl::TRect disc;  ///< the square of the raster
    owl::TRect scale; ///< the bar; its numbers stand to its right
    int numbersWidth = 0;
    int headRadius = 0;
    owl::TPoint centre;
};

/// \param lineHeight of the font, pixels \param numbersWidth of the widest text beside the bar
ORVANTA_API FlatMapLayout LayOutFlatMap(const owl::TRect& area, double reach, int lineHeight,
                                        int numbersWidth, bool withTitle, bool withScale);

/// The coloured disc: one pixel of the picture for each of the raster, transparent around it, with stripes of
/// the background where the values are extrapolated.
ORVANTA_API owl::TImage DiscOf(const FlatMap& map);

ORVANTA_API void PaintFlatMap(owl::TDC& dc, const FlatMap& map);

} // namespace orvanta::chart
