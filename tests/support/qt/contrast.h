// SPDX-License-Identifier: GPL-3.0-or-later
// How well colours can be told apart.
#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

namespace orvanta::test {

/// WCAG 2.1, "relative luminance".
inline double Luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// WCAG 2.1, "contrast ratio", 1 to 21.
inline double Contrast(const QColor& one, const QColor& other) {
    const double first = Luminance(one);
    const double second = Luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

} // namespace orvanta::test
