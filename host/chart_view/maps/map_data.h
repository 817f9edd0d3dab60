// SPDX-License-Identifier: GPL-3.0-or-later
// What a map shows.
#pragma once

#include "host/chart_view/maps/map_window.h"

#include <span>
#include <string>
#include <vector>

namespace orvanta::chart {

struct ORVANTA_API MapData {
    std::vector<ElectInfo> electrodes;
    std::vector<double> values; ///< of the electrodes; those that are missing are not known
    std::string title;
    std::string unit;
    std::string missing; ///< why the values say nothing; empty when they do
    // As given to SetRange.
    double low = 0, high = 1;
    bool autoScale = true;
    bool zeroMin = false;

    /// NaN for one that is not known.
    double ValueOf(std::size_t electrode) const;
    /// With a place on the head and a finite value that says something.
    bool IsUsed(std::size_t electrode) const;
    /// How many are.
    std::size_t CountUsed() const;
};

/// Of the finite ones; nothing without any.
ORVANTA_API std::optional<ValueRange> RangeOf(std::span<const double> values);

/// The scale of the map's colours: low is never above high.
ORVANTA_API ValueRange ScaleOf(const MapData& data);

/// Why nothing can be drawn; empty when something can.
ORVANTA_API std::string NoticeOf(const MapData& data);

} // namespace orvanta::chart
