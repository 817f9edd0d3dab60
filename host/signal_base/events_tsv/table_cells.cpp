// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/events_tsv/table_cells.h"

#include "host/signal_base/text.h"
#include "host/signal_base/text_encoding.h"

#include <algorithm>

namespace orvanta::signal {

namespace {

std::string Utf8(std::string_view cell) {
    return IsUtf8(cell) ? std::string(cell) : ToUtf8(Trim(cell));
}

} // namespace

std::vector<std::string> CellsOf(std::string_view line) {
    std::vector<std::string> cells;
    for (;;) {
        const std::size_t end = std::min(line.find('\t'), line.size());
        cells.push_back(Utf8(line.substr(0, end)));
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
