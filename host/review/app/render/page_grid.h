// SPDX-License-Identifier: GPL-3.0-or-later
// Rows and columns of a page that the user left open.
#pragma once

namespace orvanta::review {

/// As many rows, or columns, as \p count cells need where they are 0; about as many of each where both are.
/// \param count of cells, at least 1
void FillGrid(int count, int& rows, int& columns);

} // namespace orvanta::review
