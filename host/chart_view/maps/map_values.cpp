// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/map_values.h"

#include "host/chart_view/maps/map_data.h"
#include "host/chart_view/maps/map_texts.h"

#include <algorithm>

namespace orvanta::chart {

namespace {

constexpr const char* kFieldEnd = "\t";
constexpr const char* kLineEnd = "\r\n";

} // namespace

std::optional<ValueRange> OverallRange(std::span<const MapContent> maps) {
    std::optional<ValueRange> overall;
    for (const MapContent& map : maps) {
        if (const auto range = RangeOf(map.values)) {
            overall =
                overall ? ValueRange{std::min(overall->low, range->low), std::max(overall->high, range->high)}
                        : *range;
        }
    }
    return overall;
}

std::string ValueText(const GenericPlatform& platform, double value) {
    constexpr int kDecimals = 3;
    return NumberText(&platform, value, kDecimals);
}

std::string ClipboardTable(const std::string& firstRow, std::span<const MapContent> maps,
                           const GenericPlatform& platform) {
    std::string table = firstRow;
    for (const MapContent& map : maps) {
        table += map.title;
        for (const double value : map.values) {
            table += kFieldEnd;
            table += ValueText(platform, value);
        }
        table += kLineEnd;
    }
    return table;
}

} // namespace orvanta::chart
