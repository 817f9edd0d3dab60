// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/time_text_input.h"

#include "host/review/app/traces/time_ruler.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <string_view>

namespace orvanta::review {

namespace {

constexpr double kDay = 86400;

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front())) != 0) {
        text.remove_prefix(1);
    }
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.back())) != 0) {
        text.remove_suffix(1);
    }
    return text;
}

/// A number without a sign with a point or a comma in it; nothing for anything else.
std::optional<double> Number(std::string_view text) {
    std::string plain(text);
    for (char& sign : plain) {
        sign = sign == ',' ? '.' : sign;
    }
    double value = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    const bool number = error == std::errc() && end == plain.data() + plain.size() && std::isfinite(value) &&
                        std::isdigit(static_cast<unsigned char>(plain.empty() ? 'x' : plain.front())) != 0;
    return number ? std::optional(value) : std::nullopt;
}

/// Seconds of "h:mm" or "h:mm:ss.f".
std::optional<double> ClockSeconds(std::string_view text) {
    double seconds = 0;
    int parts = 0;
    while (true) {
        const std::size_t colon = text.find(':');
        const std::optional<double> part = Number(Trimmed(text.substr(0, colon)));
        const bool last = colon == std::string_view::npos;
        if (!part || ++parts > 3 || (parts > 1 && *part >= 60) || (!last && *part != std::floor(*part))) {
            return std::nullopt;
        }
        seconds = seconds * 60 + *part;
        if (last) {
            break;
        }
        text.remove_prefix(colon + 1);
    }
    return parts == 1 ? std::nullopt : std::optional(parts == 2 ? seconds * 60 : seconds);
}

/// Seconds of "90", "90 s", "1.5 min", "2 h".
std::optional<double> PlainSeconds(std::string_view text) {
    std::size_t unit = text.size();
    while (unit > 0 && std::isalpha(static_cast<unsigned char>(text[unit - 1])) != 0) {
        --unit;
    }
    const std::string_view name = text.substr(unit);
    const double factor = name.empty() || name == "s" || name == "sec" ? 1
                          : name == "m" || name == "min"               ? 60
                          : name == "h"                                ? 3600
                                                                       : 0;
    const std::optional<double> number = Number(Trimmed(text.substr(0, unit)));
    return number && factor > 0 ? std::optional(*number * factor) : std::nullopt;
}

double SecondsOfDay(const signal::StartTime& start) {
    return start.hour * 3600.0 + start.minute * 60.0 + start.second + start.microsecond / 1e6;
}

std::string Range(const TimeContext& context) {
    std::string range;
    if (context.start) {
        range = ClockTimeText(0, 1, context.start) + " to " + ClockTimeText(context.total, 1, context.start) +
                ", or ";
    }
    return range + ElapsedText(0, 1) + " to " + ElapsedText(context.total, 1);
}

} // namespace

TypedTime ReadTypedTime(const std::string& text, const TimeContext& context) {
    std::string_view typed = Trimmed(text);
    const char sign = typed.empty() ? ' ' : typed.front();
    const bool relative = sign == '+' || sign == '-';
    if (relative) {
        typed = Trimmed(typed.substr(1));
    }
    const std::optional<double> clock = ClockSeconds(typed);
    const std::optional<double> plain = PlainSeconds(typed);
    if (!clock && !plain) {
        return {0, "\"" + text +
                       "\" is no time (type a clock time such as 10:23:45, seconds such as 90, or a step "
                       "such as +90 s)"};
    }
    double seconds = clock ? *clock : *plain;
    if (relative) {
        seconds = context.now + (sign == '-' ? -seconds : seconds);
    } else if (clock && context.start) {
        if (*clock >= kDay) {
            return {0, "a day has 24 hours (type a time from 00:00:00 to 23:59:59)"};
        }
        seconds -= SecondsOfDay(*context.start);
        seconds += seconds < 0 ? kDay : 0;
    }
    if (seconds < 0 || seconds > context.total) {
        return {0, "the recording has no such time (type one from " + Range(context) + ")"};
    }
    return {seconds, {}};
}

} // namespace orvanta::review
