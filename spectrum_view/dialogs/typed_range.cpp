// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/dialogs/typed_range.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string_view>

namespace orvanta::spectrum_view {

TypedNumber::TypedNumber(const std::string& text) {
    constexpr double kLargest = std::numeric_limits<double>::max();
    char* end = nullptr;
    const double read = std::strtod(text.c_str(), &end);
    const std::string_view behind(end);
    whole =
        end != text.c_str() && behind.find_first_not_of(' ') == std::string_view::npos && std::isfinite(read);
    isNan = std::isnan(read);
    value = isNan ? 0 : std::clamp(read, -kLargest, kLargest);
}

std::string OneDecimal(double value, int width) {
    std::array<char, kNumberBytes + 1> text{};
    std::snprintf(text.data(), text.size(), "%*.1lf", width, value);
    return text.data();
}

std::string ShortText(double value) {
    std::array<char, kNumberBytes + 1> text{};
    std::snprintf(text.data(), text.size(), "%g", value);
    return text.data();
}

} // namespace orvanta::spectrum_view
