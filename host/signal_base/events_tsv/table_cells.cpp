// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/events_tsv/table_cells.h"

#include "host/signal_base/events_tsv/table_columns.h"
#include "host/signal_base/text.h"
#include "host/signal_base/text_encoding.h"

#include <algorithm>

namespace orvanta::signal {

std::string CellText(std::string_view cell) {
    for (cell = Trim(cell); cell.starts_with(kByteOrderMark); cell = Trim(cell)) {
        cell.remove_prefix(kByteOrderMark.size());
    }
    return ToUtf8(cell);
}

std::vector<std::string> CellsOf(std::string_view line) {
    std::vector<std::string> cells;
    for (;;) {
        const std::size_t end = std::min(line.find('\t'), line.size());
        const std::string_view cell = line.substr(0, end);
        cells.push_back(IsUtf8(cell) ? std::string(cell) : CellText(cell));
        if (end == line.size()) {
            return cells;
        }
        line.remove_prefix(end + 1);
    }
}

std::string JoinedCells(const std::vector<std::string>& cells) {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        line += (i == 0 ? "" : "\t") + cells[i];
    }
    return line;
}

std::string_view LineEndOf(std::string_view table) {
    const std::size_t end = table.find_first_of("\r\n");
    if (end == std::string_view::npos) {
        return "\n";
    }
    return table.substr(end, table.substr(end).starts_with("\r\n") ? 2 : 1);
}

} // namespace orvanta::signal
