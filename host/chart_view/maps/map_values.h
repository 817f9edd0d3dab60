// SPDX-License-Identifier: GPL-3.0-or-later
// What the maps of a view show, apart from how.
#pragma once

#include "host/chart_view/maps/map_window.h"

#include <span>

namespace orvanta::chart {

/// One map.
struct MapContent {
    std::string title;
    std::vector<double> values; ///< one for each electrode
    std::string unit;           ///< empty for the view's

    bool operator==(const MapContent&) const = default;
};

/// Ends of the finite values of all maps; nothing without any.
ORVANTA_API std::optional<ValueRange> OverallRange(std::span<const MapContent> maps);

/// A value in a table: three decimals in the user's numerals, "n/a" when it is not finite.
ORVANTA_API std::string ValueText(const GenericPlatform& platform, double value);

/// \p firstRow, then one row for each map: its title, a tab and the value for each electrode.
ORVANTA_API std::string ClipboardTable(const std::string& firstRow, std::span<const MapContent> maps,
                                       const GenericPlatform& platform);

} // namespace orvanta::chart
