// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/number_words.h"

#include <array>
#include <charconv>

namespace orvanta::signal {

std::string CountText(std::uint64_t count, const std::string& word) {
    return std::to_string(count) + ' ' + word + (count == 1 ? "" : "s");
}

namespace {

std::string Digits(double value) {
    std::array<char, 32> text{};
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 6);
    return {text.data(), end};
}

} // namespace

std::string SecondsText(double seconds) {
    return Digits(seconds) + " s";
}

std::string HertzText(double hertz) {
    return Digits(hertz) + " Hz";
}

} // namespace orvanta::signal
