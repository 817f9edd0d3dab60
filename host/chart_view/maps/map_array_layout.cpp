// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/map_array_layout.h"

#include <algorithm>

namespace orvanta::chart {

namespace {

/// A part takes at most one in so many pixels of what it shares with the maps.
constexpr int kShareOfPart = 3;

/// The part's pixels where there is room for it, else 0.
int Fitting(int wanted, int room) {
    return wanted <= room / kShareOfPart ? wanted : 0;
}

/// Equal parts, so that their heads are; what does not divide is left at both ends.
struct EqualParts {
    int from;
    int each;

    EqualParts(int begin, int end, int count)
        : from(begin + (end - begin) % count / 2), each((end - begin) / count) {}
    int Edge(int index) const { return from + index * each; }
};

} // namespace

MapGrid Repaired(const MapGrid& grid) {
    return {std::clamp<std::uint16_t>(grid.rows, 1, kMostMapsAside),
            std::clamp<std::uint16_t>(grid.columns, 1, kMostMapsAside)};
}

MapArrayLayout LayOutMapArray(const owl::TRect& area, const MapGrid& grid, const MapArrayParts& parts) {
    MapArrayLayout layout;
    owl::TRect rest = area;
    const int bar = std::clamp(parts.barHeight, 0, std::max(0, rest.Height()));
    if (bar > 0) {
        layout.bar = {rest.left, rest.bottom - bar, rest.right, rest.bottom};
        rest.bottom -= bar;
    }
    if (const int title = Fitting(parts.titleHeight, rest.Height()); title > 0) {
        layout.title = {rest.left, rest.top, rest.right, rest.top + title};
        rest.top += title;
    }
    if (const int scale = Fitting(parts.scaleWidth, rest.Width()); scale > 0) {
        layout.scale = {rest.right - scale, rest.top, rest.right, rest.bottom};
        rest.right -= scale;
    }
    layout.maps.reserve(grid.Count());
    const EqualParts columns(rest.left, rest.right, grid.columns);
    const EqualParts rows(rest.top, rest.bottom, grid.rows);
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            layout.maps.push_back(
                {columns.Edge(column), rows.Edge(row), columns.Edge(column + 1), rows.Edge(row + 1)});
        }
    }
    return layout;
}

} // namespace orvanta::chart
