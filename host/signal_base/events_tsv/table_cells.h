// SPDX-License-Identifier: GPL-3.0-or-later
// Rows of a table with tabs, as they are written again.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvanta::signal {

/// What a cell says, in UTF-8, without the blanks around it and the byte order marks before it. Read as a
/// cell, it says the same.
std::string CellText(std::string_view cell);
/// The cells of a row in UTF-8, blanks and all; one at least.
std::vector<std::string> CellsOf(std::string_view line);
/// Those cells with tabs between them.
std::string JoinedCells(const std::vector<std::string>& cells);
/// How the first line of a table ends; "\n" for one without an end.
std::string_view LineEndOf(std::string_view table);

} // namespace orvanta::signal
