// SPDX-License-Identifier: GPL-3.0-or-later
// Where the plots lie in the view.
#pragma once

#include "host/toolkit/geometry.h"
#include "spectrum_view/traces/trace_list.h"

namespace orvanta::spectrum_view {

/// Cell of the grid: left W·c/columns, top H·r/rows, right W·(c+1)/columns, bottom H·(r+1)/rows, rounded to
/// nearest, with W the area's width and H its height less the height of the font. The area's left and top are
/// not added. The grid must have cells.
/// \param fontHeight as in the font's description, where it may be negative; pixels
owl::TRect GridCell(const owl::TRect& area, int fontHeight, const GridSize& grid, std::uint64_t row,
                    std::uint64_t column);

/// Gives the entries the cells of the grid row by row; entries beyond the grid get an empty rectangle.
void SetGridCoords(std::span<TraceEntry> entries, const owl::TRect& area, int fontHeight,
                   const GridSize& grid);

/// Gives every entry with a spectrum the place of its electrode on the head; without a standard position, or
/// without a spectrum, an empty rectangle.
void SetScalpCoords(std::span<TraceEntry> entries, const owl::TRect& area, const EEGFileInfoType& recording);

} // namespace orvanta::spectrum_view
