// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace orvanta::signal {

namespace {

constexpr std::string_view kBlanks{" \t\r\n\v\f\0", 7};

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// from_chars knows no plus sign.
std::string_view WithoutPlus(std::string_view text) {
    const bool plus = text.size() > 1 && text[0] == '+' && text[1] != '-';
    return plus ? text.substr(1) : text;
}

template <typename Number>
std::optional<Number> Parse(std::string_view text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return value;
}

} // namespace

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), Lower);
    return lower;
}

bool SameText(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Lower(x) == Lower(y); });
}

std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end);
    text.remove_prefix(text.starts_with("\r\n") ? 2 : text.empty() ? 0 : 1);
    return line;
}

std::optional<double> ParseNumber(std::string_view text) {
    const std::optional<double> value = Parse<double>(WithoutPlus(Trim(text)));
    return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<RepairedNumber> ParseNumberOrComma(std::string_view text) {
    std::string point(text);
    const bool comma =
        std::count(text.begin(), text.end(), ',') == 1 && text.find('.') == std::string_view::npos;
    if (comma) {
        std::replace(point.begin(), point.end(), ',', '.');
    }
    const std::optional<double> value = ParseNumber(point);
    return value ? std::optional(RepairedNumber{*value, comma}) : std::nullopt;
}

std::optional<std::int64_t> ParseWhole(std::string_view text) {
    return Parse<std::int64_t>(WithoutPlus(Trim(text)));
}

} // namespace orvanta::signal
