// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/traces/view_coords.h"

#include "host/chart_view/view_regions.h"
#include "spectra_contract/recording.h"

#include <cstdlib>

namespace orvanta::spectrum_view {

owl::TRect GridCell(const owl::TRect& area, int fontHeight, const GridSize& grid, std::uint64_t row,
                    std::uint64_t column) {
    const int height = area.Height() - std::abs(fontHeight);
    const int width = area.Width();
    const int rows = static_cast<int>(grid.rows);
    const int columns = static_cast<int>(grid.columns);
    const int r = static_cast<int>(row);
    const int c = static_cast<int>(column);
    return {MulDiv(width, c, columns), MulDiv(height, r, rows), MulDiv(width, c + 1, columns),
            MulDiv(height, r + 1, rows)};
}

void SetGridCoords(std::span<TraceEntry> entries, const owl::TRect& area, int fontHeight,
                   const GridSize& grid) {
    for (std::size_t i = 0; i < entries.size(); ++i) {
        entries[i].rectangle = i < grid.Cells()
                                   ? GridCell(area, fontHeight, grid, i / grid.columns, i % grid.columns)
                                   : owl::TRect();
    }
}

void SetScalpCoords(std::span<TraceEntry> entries, const owl::TRect& area, const EEGFileInfoType& recording) {
    SensorList sensors;
    recording.GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily, Sensor::Class::Eeg);
    const MyRect head{(area.left + area.right) / 2, (area.top + area.bottom) / 2, area.Width(),
                      area.Height()};
    const bool mappable = recording.GetTraceInfo()->GetMtg().IsMappable();
    const ViewRegions regions = Get2DViewRegions(sensors, head);
    for (TraceEntry& entry : entries) {
        entry.rectangle = {};
        if (entry.main == nullptr) {
            continue;
        }
        const auto region = regions.find(PositionName(*entry.main, mappable));
        if (region != regions.end()) {
            entry.rectangle = region->second;
        }
    }
}

} // namespace orvanta::spectrum_view
