// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/channels_tsv/channels_table.h"

#include "host/signal_base/events_tsv/table_cells.h"
#include "host/signal_base/events_tsv/table_columns.h"
#include "host/signal_base/limited_list.h"
#include "host/signal_base/recording_error.h"
#include "host/signal_base/text.h"
#include "host/signal_base/text_encoding.h"

#include <algorithm>
#include <filesystem>
#include <optional>

namespace orvanta::signal {

namespace {

constexpr std::string_view kNewTable = "name\ttype\tunits\tstatus\tstatus_description\n";
constexpr std::string_view kMissing = "n/a";

std::optional<std::size_t> PlaceOf(const std::vector<std::string>& cells, std::string_view name) {
    const auto found = std::find_if(cells.begin(), cells.end(),
                                    [name](const std::string& cell) { return SameText(Trim(cell), name); });
    return found == cells.end() ? std::nullopt : std::optional(std::size_t(found - cells.begin()));
}

/// Good or bad; nothing for a cell that says neither.
std::optional<bool> IsBad(std::string_view status) {
    const bool bad = SameText(status, "bad");
    return bad || SameText(status, "good") ? std::optional(bad) : std::nullopt;
}

std::size_t PlaceOfNames(const std::vector<std::string>& head, const std::string& file) {
    const std::optional<std::size_t> names = PlaceOf(head, "name");
    if (!names) {
        throw RecordingError(file, "line 1: no column named \"name\"",
                             "name the columns in the first line, with tabs between them");
    }
    return *names;
}

std::string_view CellAt(const std::vector<std::string>& cells, std::size_t place) {
    return place < cells.size() ? Trim(cells[place]) : std::string_view();
}

std::string Status(bool bad) {
    return bad ? "bad" : "good";
}

/// The columns of a table that is written, those that were missing among them.
class Columns {
public:
    /// \param complete adds the column of the marks when there is none
    Columns(std::string_view line, const std::string& file, bool complete) : cells_(CellsOf(line)) {
        names_ = PlaceOfNames(cells_, file);
        status_ = PlaceOf(cells_, "status");
        width_ = cells_.size();
        if (!status_ && complete) {
            status_ = width_;
            cells_.emplace_back("status");
        }
    }

    const std::vector<std::string>& Head() const { return cells_; }

    const ChannelRow* ChannelOf(const std::vector<std::string>& row,
                                std::span<const ChannelRow> channels) const {
        const std::string_view name = CellAt(row, names_);
        const auto named = [name](const auto& nameOf) {
            return [name, nameOf](const ChannelRow& channel) { return SameText(name, nameOf(channel)); };
        };
        auto found =
            std::find_if(channels.begin(), channels.end(),
                         named([](const ChannelRow& channel) { return std::string_view(channel.name); }));
        if (found == channels.end()) {
            found = std::find_if(channels.begin(), channels.end(), named([](const ChannelRow& channel) {
                                     return std::string_view(channel.sensor);
                                 }));
        }
        return found == channels.end() ? nullptr : &*found;
    }

    /// A row as it was read, with the columns that were added. One longer than the head keeps what it has
    /// more of behind them.
    std::vector<std::string> Completed(std::vector<std::string> row) const {
        if (cells_.size() > width_) {
            row.resize(std::max(row.size(), width_), std::string(kMissing));
            row.insert(row.begin() + std::ptrdiff_t(width_), std::string(kMissing));
        }
        return row;
    }

    std::vector<std::string> Marked(const std::vector<std::string>& row, bool bad) const {
        std::vector<std::string> marked = Completed(row);
        marked.resize(std::max(marked.size(), cells_.size()), std::string(kMissing));
        marked[*status_] = Status(bad);
        return marked;
    }

    std::vector<std::string> RowOf(const ChannelRow& channel) const {
        std::vector<std::string> row(width_, std::string(kMissing));
        row[names_] = channel.name;
        for (const auto& [column, value] :
             {std::pair<std::string_view, const std::string*>("type", &channel.type),
              std::pair<std::string_view, const std::string*>("units", &channel.units)}) {
            if (const std::optional<std::size_t> place = PlaceOf(cells_, column); place && *place < width_) {
                row[*place] = value->empty() ? std::string(kMissing) : *value;
            }
        }
        return Marked(row, channel.bad);
    }

private:
    std::vector<std::string> cells_;
    std::size_t names_ = 0;
    std::optional<std::size_t> status_;
    std::size_t width_ = 0; ///< as it was read
};

} // namespace

std::vector<ChannelMark> ParseChannelsTable(std::string_view text, const std::string& file,
                                            std::vector<std::string>& repairs) {
    if (text.starts_with(kByteOrderMark)) {
        text.remove_prefix(kByteOrderMark.size());
    }
    const std::vector<std::string> head = CellsOf(TakeLine(text));
    const std::size_t names = PlaceOfNames(head, file);
    const std::optional<std::size_t> statuses = PlaceOf(head, "status");
    std::vector<ChannelMark> marks;
    LimitedList list(repairs, std::filesystem::path(file).filename().string() + ": ");
    for (std::size_t line = 2; statuses && !text.empty(); ++line) {
        const std::vector<std::string> row = CellsOf(TakeLine(text));
        const std::string_view status = CellAt(row, *statuses);
        if (const std::optional<bool> bad = IsBad(status)) {
            marks.push_back({std::string(CellAt(row, names)), *bad});
        } else if (!IsMissing(status)) {
            list.Add("line " + std::to_string(line) + ": status " + Quoted(status) +
                     " is neither good nor bad, not used");
        }
    }
    return marks;
}

std::string WriteChannelsTable(std::string_view table, const std::string& file,
                               std::span<const ChannelRow> channels) {
    const bool isNew = table.empty();
    std::string_view rest = isNew ? kNewTable : table;
    const std::string_view lineEnd = LineEndOf(rest);
    const bool mark = rest.starts_with(kByteOrderMark);
    rest.remove_prefix(mark ? kByteOrderMark.size() : 0);
    const bool changes = std::any_of(channels.begin(), channels.end(),
                                     [](const ChannelRow& channel) { return channel.changed; });
    const Columns columns(TakeLine(rest), file, changes);
    std::vector<std::string> lines;
    std::vector<const ChannelRow*> told;
    while (!rest.empty()) {
        const std::vector<std::string> row = CellsOf(TakeLine(rest));
        const ChannelRow* channel = columns.ChannelOf(row, channels);
        told.push_back(channel);
        lines.push_back(channel != nullptr && channel->changed
                            ? JoinedCells(columns.Marked(row, channel->bad))
                            : JoinedCells(columns.Completed(row)));
    }
    for (const ChannelRow& channel : channels) {
        const bool known = std::find(told.begin(), told.end(), &channel) != told.end();
        if (isNew || (channel.changed && !known)) {
            lines.push_back(JoinedCells(columns.RowOf(channel)));
        }
    }
    std::string text(mark ? kByteOrderMark : "");
    text.append(JoinedCells(columns.Head())).append(lineEnd);
    for (const std::string& line : lines) {
        text.append(line).append(lineEnd);
    }
    return text;
}

} // namespace orvanta::signal
