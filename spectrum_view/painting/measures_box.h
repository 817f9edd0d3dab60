// SPDX-License-Identifier: GPL-3.0-or-later
// Paints the table of measures over a cell of the grid.
#pragma once

#include "host/toolkit/dc.h"
#include "spectrum_view/painting/measures_box_input.h"

#include <span>

namespace orvanta::spectrum_view {

/// Measures shown, in the order of their columns: 1 to 5 for one cell; 1, 3 and 5 for two to four; else none.
std::span<const int> MeasuresShown(std::uint64_t cells);

/// So many bands of the table are looked at: as many as are defined for one cell, all for two to four, else
/// none.
int BandsLookedAt(const MeasuresBoxInput& input);

/// Height of the box' font: trunc(height × min(cell width, cell height) × 1.0 × 0.025 / 14.0).
int MeasuresFontHeight(const MeasuresBoxInput& input);

/// Pixels of the table. The column width comes from the first cell, its left edge included.
struct MeasuresBoxGeometry {
    int right = 0; ///< of the last column
    int top = 0;
    int columnWidth = 0;
    int lineHeight = 0;
    int columns = 0; ///< of measures
    owl::TRect box;

    /// Right edge of a measure's column.
    int ColumnRight(int column) const { return right - (columns - 1 - column) * columnWidth; }
    /// Right edge of the column of the bands' names.
    int NameRight() const { return right - columns * columnWidth; }
    /// Upper edge of a band's row, which follows its place in the table.
    int RowTop(int band) const { return static_cast<int>((band + 1) * 1.3 * lineHeight + top); }
};

/// \param lineHeight height of the first measure's name in the box' font
MeasuresBoxGeometry MeasuresBoxGeometryOf(const MeasuresBoxInput& input, int lineHeight);

/// The box as it will be painted; empty where it will not: in grids of more than two columns or rows, and
/// where the numbers would be too small to read, run into each other or leave the cell. Selects the box'
/// font.
owl::TRect MeasuresBoxRect(owl::TDC& dc, const MeasuresBoxInput& input);

/// Paints the box, nothing where its rectangle is empty. The layout must be the grid, the box switched on and
/// the cell have a spectrum: that is the caller's to know. Text alignment stays as it was.
void PaintMeasuresBox(owl::TDC& dc, const MeasuresBoxInput& input);

} // namespace orvanta::spectrum_view
