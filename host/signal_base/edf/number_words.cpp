// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/edf/number_words.h"

#include <array>
#include <charconv>

namespace orvanta::signal {

std::string CountText(std::uint64_t count, const std::string& word) {
    return std::to_string(count) + ' ' + word + (count == 1 ? "" : "s");
}

std::string SecondsText(double seconds) {
    std::array<char, 32> text{};
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), seconds, std::chars_format::general, 6);
    return std::string(text.data(), end) + " s";
}

} // namespace orvanta::signal
