// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/brainvision/markers.h"

#include "host/signal_base/brainvision/ini_text.h"
#include "host/signal_base/calendar.h"
#include "host/signal_base/limited_list.h"
#include "host/signal_base/text.h"
#include "host/signal_base/text_encoding.h"

#include <algorithm>
#include <array>

namespace orvanta::signal::brainvision {

namespace {

/// "yyyymmddhhmmssuuuuuu", from whole seconds on.
std::optional<StartTime> ParseDate(std::string_view text) {
    constexpr std::array<std::size_t, 7> kWidths = {4, 2, 2, 2, 2, 2, 6};
    if (text.size() < 14 || text.size() > 20 ||
        text.find_first_not_of("0123456789") != std::string_view::npos) {
        return std::nullopt;
    }
    std::string digits(text);
    digits.resize(20, '0');
    std::array<int, 7> values{};
    std::size_t at = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = static_cast<int>(ParseWhole(std::string_view(digits).substr(at, kWidths[i])).value_or(0));
        at += kWidths[i];
    }
    const auto [year, month, day, hour, minute, second, microsecond] = values;
    const StartTime time{year, month, day, hour, minute, second, microsecond};
    return MicrosecondsOf(time) ? std::optional(time) : std::nullopt;
}

/// A date is absent when it is empty or all zeros.
bool IsDated(std::string_view text) {
    return text.find_first_not_of('0') != std::string_view::npos;
}

/// Field of the position: the third, or, when there are too many because a comma of the description is not
/// escaped, the first number from there on.
std::size_t PositionField(const std::vector<std::string>& fields) {
    constexpr std::size_t kUsual = 5; // without a date
    std::size_t at = 2;
    while (fields.size() > kUsual && at + 1 < fields.size() && !ParseWhole(fields[at])) {
        ++at;
    }
    return at;
}

std::string Joined(const std::vector<std::string>& fields, std::size_t first, std::size_t last) {
    std::string text;
    for (std::size_t i = first; i < last; ++i) {
        text += (i == first ? "" : ",") + fields[i];
    }
    return text;
}

std::optional<Marker> ParseMarker(const IniEntry& entry, LimitedList& list) {
    const std::string place = "line " + std::to_string(entry.line) + ": ";
    std::vector<std::string> fields = SplitFields(entry.value);
    fields.resize(std::max<std::size_t>(fields.size(), 3));
    const std::size_t at = PositionField(fields);
    const std::optional<std::int64_t> position = ParseWhole(fields[at]);
    if (!position || *position < 0) {
        list.Add(place + "position " + Quoted(fields[2]) + " is no data point, marker left out");
        return std::nullopt;
    }
    if (*position == 0) {
        list.Add(place + "position 0 taken as the first data point");
    }
    fields.resize(std::max(fields.size(), at + 4));
    Marker marker;
    marker.type = fields[0];
    marker.description = Joined(fields, 1, at);
    marker.frame = static_cast<std::uint64_t>(std::max<std::int64_t>(*position, 1) - 1);
    marker.size =
        static_cast<std::uint64_t>(std::max<std::int64_t>(ParseWhole(fields[at + 1]).value_or(1), 1));
    marker.line = entry.line;
    if (IsNewSegment(marker) && IsDated(fields[at + 3])) {
        marker.date = ParseDate(fields[at + 3]);
        if (!marker.date) {
            list.Add(place + "date " + Quoted(fields[at + 3]) + " is none, ignored");
        }
    }
    return marker;
}

} // namespace

bool IsNewSegment(const Marker& marker) {
    return Folded(marker.type) == "newsegment";
}

std::string TextOf(const Marker& marker) {
    if (marker.description.empty()) {
        return marker.type.empty() ? "event" : marker.type;
    }
    if (marker.type.empty() || Folded(marker.type) == "comment") {
        return marker.description;
    }
    return marker.type + "/" + marker.description;
}

std::vector<Marker> ParseMarkers(std::string_view text, const std::string& name,
                                 std::vector<std::string>& repairs) {
    LimitedList list(repairs, name + ": ");
    const std::string utf8 = ToUtf8(text);
    std::vector<Marker> markers;
    for (const IniEntry& entry : ParseIni(utf8)) {
        if (entry.section == "markerinfos" && entry.key.starts_with("mk")) {
            if (auto marker = ParseMarker(entry, list)) {
                markers.push_back(std::move(*marker));
            }
        }
    }
    return markers;
}

} // namespace orvanta::signal::brainvision
