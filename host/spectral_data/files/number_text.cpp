// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/files/number_text.h"

#include <charconv>
#include <cmath>

namespace orvanta::spectral {

void AppendNumber(std::string& text, double value) {
    if (!std::isfinite(value)) {
        text += "n/a";
        return;
    }
    char buffer[32]; // the longest shortest form, "-2.2250738585072014e-308", has 24 characters
    text.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

std::string NumberText(double value) {
    std::string text;
    AppendNumber(text, value);
    return text;
}

} // namespace orvanta::spectral
