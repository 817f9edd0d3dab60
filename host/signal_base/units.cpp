// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/units.h"

#include "host/signal_base/text.h"

#include <array>

namespace orvanta::signal {

namespace {

struct Prefix {
    std::string_view spelling; ///< in lower case
    std::string_view normal;
};

// Micro: the letter u, U+00B5, U+03BC, U+00B5 encoded twice or half of that, the byte 0xE6 (micro in the code
// pages 437 and 850) read as Latin-1, U+FFFD and "?" where a conversion lost it.
constexpr std::array kPrefixes = {Prefix{"", "V"},        Prefix{"m", "mV"},
                                  Prefix{"milli", "mV"},  Prefix{"n", "nV"},
                                  Prefix{"nano", "nV"},   Prefix{"u", "µV"},
                                  Prefix{"micro", "µV"},  Prefix{"mu", "µV"},
                                  Prefix{"mc", "µV"},     Prefix{"mk", "µV"},
                                  Prefix{"\u00C2", "µV"}, Prefix{"\u00E6", "µV"},
                                  Prefix{"\u00B5", "µV"}, Prefix{"\u03BC", "µV"},
                                  Prefix{"\u039C", "µV"}, Prefix{"\u00C2\u00B5", "µV"},
                                  Prefix{"\uFFFD", "µV"}, Prefix{"\uFFFD\uFFFD", "µV"},
                                  Prefix{"?", "µV"},      Prefix{"??", "µV"}};

constexpr std::array<std::string_view, 3> kVolts = {"volts", "volt", "v"};

} // namespace

std::string NormalUnit(std::string_view unit) {
    unit = Trim(unit);
    const std::string lower = LowerCase(unit);
    for (const std::string_view volt : kVolts) {
        if (!lower.ends_with(volt)) {
            continue;
        }
        const std::string_view prefix = Trim(std::string_view(lower).substr(0, lower.size() - volt.size()));
        for (const Prefix& known : kPrefixes) {
            if (prefix == known.spelling) {
                return std::string(known.normal);
            }
        }
    }
    return std::string(unit);
}

std::optional<double> MicrovoltsPer(std::string_view normalUnit) {
    if (normalUnit == "µV") {
        return 1;
    }
    if (normalUnit == "mV") {
        return 1e3;
    }
    if (normalUnit == "V") {
        return 1e6;
    }
    if (normalUnit == "nV") {
        return 1e-3;
    }
    return std::nullopt;
}

} // namespace orvanta::signal
