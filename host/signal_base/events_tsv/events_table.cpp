// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/events_tsv/events_table.h"

#include "host/signal_base/data_file.h"
#include "host/signal_base/limited_list.h"
#include "host/signal_base/recording_error.h"
#include "host/signal_base/text.h"
#include "host/signal_base/text_encoding.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>

namespace orvanta::signal {

namespace {

constexpr std::uint64_t kMaxBytes = std::uint64_t{64} << 20;
constexpr double kMaxSeconds = 1e9; ///< 32 years
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

enum Column { kOnset, kDuration, kTrialType, kValue, kColumns };
constexpr std::array<std::string_view, kColumns> kNames = {"onset", "duration", "trial_type", "value"};

/// The used columns of one row; empty where the row has none.
using Row = std::array<std::string_view, kColumns>;

/// Takes the next column off a line.
std::string_view TakeColumn(std::string_view& line) {
    const std::size_t end = std::min(line.find('\t'), line.size());
    const std::string_view column = Trim(line.substr(0, end));
    line.remove_prefix(std::min(end + 1, line.size()));
    return column;
}

/// Which place holds which used column.
class Head {
public:
    explicit Head(std::string_view line) {
        for (std::size_t place = 0; !line.empty(); ++place) {
            const std::string_view name = TakeColumn(line);
            const auto* const known = std::find_if(
                kNames.begin(), kNames.end(), [&](std::string_view other) { return SameText(name, other); });
            if (known != kNames.end() && !Has(Column(known - kNames.begin()))) {
                places_[std::size_t(known - kNames.begin())] = place;
                last_ = place;
            }
        }
    }

    bool Has(Column column) const { return places_[column] != kNowhere; }

    Row Split(std::string_view line) const {
        Row row;
        for (std::size_t place = 0; place <= last_ && !line.empty(); ++place) {
            const std::string_view text = TakeColumn(line);
            const auto* const used = std::find(places_.begin(), places_.end(), place);
            if (used != places_.end()) {
                row[std::size_t(used - places_.begin())] = text;
            }
        }
        return row;
    }

private:
    static constexpr std::size_t kNowhere = SIZE_MAX;
    std::array<std::size_t, kColumns> places_ = {kNowhere, kNowhere, kNowhere, kNowhere};
    std::size_t last_ = 0;
};

bool IsMissing(std::string_view text) {
    return text.empty() || SameText(text, "n/a");
}

std::optional<RepairedNumber> Seconds(std::string_view text) {
    const std::optional<RepairedNumber> number = ParseNumberOrComma(text);
    return number && std::abs(number->value) <= kMaxSeconds ? number : std::nullopt;
}

} // namespace

void ParseEventsTable(std::string_view text, const std::string& file, std::vector<Annotation>& annotations,
                      std::vector<std::string>& repairs) {
    if (text.starts_with(kByteOrderMark)) {
        text.remove_prefix(kByteOrderMark.size());
    }
    const Head head(TakeLine(text));
    if (!head.Has(kOnset)) {
        throw RecordingError(file, "line 1: no column named \"onset\"",
                             "name the columns in the first line, with tabs between them");
    }
    LimitedList list(repairs, std::filesystem::path(file).filename().string() + ": ");
    for (std::size_t line = 2; !text.empty(); ++line) {
        const std::string_view content = TakeLine(text);
        if (Trim(content).empty()) {
            continue;
        }
        const Row row = head.Split(content);
        const std::string place = "line " + std::to_string(line) + ": ";
        const std::optional<RepairedNumber> onset = Seconds(row[kOnset]);
        if (!onset) {
            list.Add(place + "onset " + Quoted(row[kOnset]) + " is no time, row left out");
            continue;
        }
        Annotation event;
        event.onset_s = onset->value;
        const std::optional<RepairedNumber> duration = Seconds(row[kDuration]);
        if (onset->comma || (duration && duration->comma)) {
            list.Add(place + "decimal comma read as a point");
        }
        if (duration && duration->value > 0) {
            event.duration_s = duration->value;
        } else if (!IsMissing(row[kDuration]) && !(duration && duration->value == 0)) {
            list.Add(place + "duration " + Quoted(row[kDuration]) + " is none, taken as a spot event");
        }
        const std::string_view label = IsMissing(row[kTrialType]) ? row[kValue] : row[kTrialType];
        event.text = ToUtf8(label);
        if (IsMissing(event.text)) {
            event.text = "event";
        }
        annotations.push_back(std::move(event));
    }
}

void ReadEventsTsv(const std::string& path, std::vector<Annotation>& annotations,
                   std::vector<std::string>& repairs) {
    ParseEventsTable(DataFile(path, "an events table").ReadAll(kMaxBytes), path, annotations, repairs);
}

} // namespace orvanta::signal
