// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/edf/edf_start.h"

#include "host/signal_base/calendar.h"
#include "host/signal_base/text.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

namespace orvanta::signal {

namespace {

using std::chrono::year_month_day;

struct Triple {
    std::array<int, 3> values{};
    bool usual = true; ///< separated by points
};

/// Three numbers of one or two digits.
std::optional<Triple> ParseTriple(std::string_view text) {
    Triple triple;
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
        const std::optional<std::int64_t> value = ParseWhole(text.substr(0, digits));
        if (!value || digits > 2) {
            return std::nullopt;
        }
        triple.values[i] = static_cast<int>(*value);
        text.remove_prefix(digits);
        if (i < 2) {
            constexpr std::string_view kSeparators = ".:-/";
            if (text.empty() || kSeparators.find(text.front()) == std::string_view::npos) {
                return std::nullopt;
            }
            triple.usual = triple.usual && text.front() == '.';
            text.remove_prefix(1);
        }
    }
    return text.empty() ? std::optional(triple) : std::nullopt;
}

year_month_day MakeDate(int year, int month, int day) {
    return {std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
            std::chrono::day(static_cast<unsigned>(day))};
}

std::optional<year_month_day> HeaderDate(std::string_view text) {
    const std::optional<Triple> triple = ParseTriple(text);
    if (!triple) {
        return std::nullopt;
    }
    const auto [day, month, shortYear] = triple->values;
    const year_month_day date = MakeDate(shortYear + (shortYear < 85 ? 2000 : 1900), month, day);
    return date.ok() ? std::optional(date) : std::nullopt;
}

std::string_view TakeWord(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(word.size());
    return word;
}

/// The date of "Startdate 02-MAR-2002 ...".
std::optional<year_month_day> RecordingDate(std::string_view recording) {
    constexpr std::array<std::string_view, 12> kMonths = {"jan", "feb", "mar", "apr", "may", "jun",
                                                          "jul", "aug", "sep", "oct", "nov", "dec"};
    if (!SameText(TakeWord(recording), "startdate")) {
        return std::nullopt;
    }
    const std::string_view word = TakeWord(recording);
    const std::size_t first = word.find('-');
    const std::size_t second = word.find('-', first == std::string_view::npos ? first : first + 1);
    if (second == std::string_view::npos) {
        return std::nullopt;
    }
    const std::optional<std::int64_t> day = ParseWhole(word.substr(0, first));
    const std::string month = LowerCase(word.substr(first + 1, second - first - 1));
    const std::optional<std::int64_t> year = ParseWhole(word.substr(second + 1));
    const auto known = std::find(kMonths.begin(), kMonths.end(), month);
    if (!day || !year || known == kMonths.end() || *day < 1 || *day > 31 || *year < 1 || *year > 9999) {
        return std::nullopt;
    }
    const year_month_day date = MakeDate(
        static_cast<int>(*year), static_cast<int>(known - kMonths.begin()) + 1, static_cast<int>(*day));
    return date.ok() ? std::optional(date) : std::nullopt;
}

std::optional<year_month_day> ReadDate(EdfFields& fields, bool plus) {
    const std::string_view bytes = fields.Bytes(edf_field::kStartDate);
    const std::optional<year_month_day> header = HeaderDate(bytes);
    const std::optional<year_month_day> recording =
        plus ? RecordingDate(fields.Bytes(edf_field::kRecording)) : std::nullopt;
    const std::string quoted = fields.Quoted(edf_field::kStartDate);
    if (recording) {
        if (header != recording && !bytes.ends_with("yy")) {
            fields.Repaired(edf_field::kStartDate, "the start date " + quoted +
                                                       " is not that of the recording field, which is used");
        }
        return recording;
    }
    if (!header) {
        fields.Repaired(edf_field::kStartDate,
                        "the start date " + quoted + " is no date, the start is unknown");
    } else if (!ParseTriple(bytes)->usual) {
        fields.Repaired(edf_field::kStartDate, "the start date " + quoted + " is written without points");
    }
    return header;
}

std::optional<std::array<int, 3>> ReadTime(EdfFields& fields) {
    const std::optional<Triple> triple = ParseTriple(fields.Bytes(edf_field::kStartTime));
    const std::string quoted = fields.Quoted(edf_field::kStartTime);
    if (!triple || triple->values[0] > 23 || triple->values[1] > 59 || triple->values[2] > 59) {
        fields.Repaired(edf_field::kStartTime,
                        "the start time " + quoted + " is no time, the start is unknown");
        return std::nullopt;
    }
    if (!triple->usual) {
        fields.Repaired(edf_field::kStartTime, "the start time " + quoted + " is written without points");
    }
    return triple->values;
}

} // namespace

std::optional<StartTime> ReadEdfStart(EdfFields& fields, bool plus) {
    const std::optional<year_month_day> date = ReadDate(fields, plus);
    const std::optional<std::array<int, 3>> time = ReadTime(fields);
    if (!date || !time) {
        return std::nullopt;
    }
    return StartTime{static_cast<int>(date->year()),
                     static_cast<int>(static_cast<unsigned>(date->month())),
                     static_cast<int>(static_cast<unsigned>(date->day())),
                     (*time)[0],
                     (*time)[1],
                     (*time)[2],
                     0};
}

StartTime Moved(const StartTime& start, double seconds) {
    const std::optional<std::int64_t> moment = MicrosecondsOf(start);
    return moment ? TimeOfMicroseconds(*moment + std::llround(seconds * 1e6)) : start;
}

} // namespace orvanta::signal
