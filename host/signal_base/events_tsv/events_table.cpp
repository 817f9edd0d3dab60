// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/events_tsv/events_table.h"

#include "host/signal_base/data_file.h"
#include "host/signal_base/events_tsv/table_cells.h"
#include "host/signal_base/events_tsv/table_columns.h"
#include "host/signal_base/limited_list.h"
#include "host/signal_base/recording_error.h"
#include "host/signal_base/text.h"
#include "host/signal_base/text_encoding.h"

#include <cmath>
#include <filesystem>

namespace orvanta::signal {

namespace {

constexpr std::uint64_t kMaxBytes = std::uint64_t{64} << 20;

std::optional<RepairedNumber> Seconds(std::string_view text) {
    const std::optional<RepairedNumber> number = ParseNumberOrComma(text);
    return number && std::abs(number->value) <= kMaxTableSeconds ? number : std::nullopt;
}

} // namespace

void ParseEventsTable(std::string_view text, const std::string& file, std::vector<Annotation>& annotations,
                      std::vector<std::string>& repairs) {
    if (text.starts_with(kByteOrderMark)) {
        text.remove_prefix(kByteOrderMark.size());
    }
    const TableHead head(TakeLine(text));
    if (!head.Has(TableHead::kOnset)) {
        throw RecordingError(file, "line 1: no column named \"onset\"",
                             "name the columns in the first line, with tabs between them");
    }
    LimitedList list(repairs, std::filesystem::path(file).filename().string() + ": ");
    for (std::size_t line = 2; !text.empty(); ++line) {
        const std::string_view content = TakeLine(text);
        if (Trim(content).empty()) {
            continue;
        }
        const TableHead::Row row = head.Split(content);
        const std::string place = "line " + std::to_string(line) + ": ";
        const std::optional<RepairedNumber> onset = Seconds(row[TableHead::kOnset]);
        if (!onset) {
            list.Add(place + "onset " + Quoted(row[TableHead::kOnset]) + " is no time, row left out");
            continue;
        }
        Annotation event;
        event.line = line;
        event.onset_s = onset->value;
        const std::optional<RepairedNumber> duration = Seconds(row[TableHead::kDuration]);
        if (onset->comma || (duration && duration->comma)) {
            list.Add(place + "decimal comma read as a point");
        }
        if (duration && duration->value > 0) {
            event.duration_s = duration->value;
        } else if (!IsMissing(row[TableHead::kDuration]) && !(duration && duration->value == 0)) {
            list.Add(place + "duration " + Quoted(row[TableHead::kDuration]) +
                     " is none, taken as a spot event");
        }
        const std::string_view label =
            IsMissing(row[TableHead::kTrialType]) ? row[TableHead::kValue] : row[TableHead::kTrialType];
        event.text = CellText(Unquoted(CellText(label)));
        if (IsMissing(event.text)) {
            event.text = "event";
        }
        annotations.push_back(std::move(event));
    }
}

std::string ReadEventsTsv(const std::string& path, std::vector<Annotation>& annotations,
                          std::vector<std::string>& repairs) {
    std::string text = DataFile(path, "an events table").ReadAll(kMaxBytes);
    ParseEventsTable(text, path, annotations, repairs);
    return text;
}

} // namespace orvanta::signal
