// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/user_numbers.h"

#include <QLocale>

#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace orvanta::side_bar {

namespace {

/// A decimal 0.d1d2d3... · 10^exponent.
struct Decimal {
    std::string digits;
    int exponent = 0;

    void RoundTo(int count) {
        if (count >= static_cast<int>(digits.size())) {
            return;
        }
        if (count < 0) {
            digits.clear();
            return;
        }
        const bool up = digits[static_cast<std::size_t>(count)] >= '5';
        digits.resize(static_cast<std::size_t>(count));
        if (!up) {
            return;
        }
        while (!digits.empty() && digits.back() == '9') {
            digits.pop_back();
        }
        if (digits.empty()) {
            digits = "1";
            ++exponent;
        } else {
            ++digits.back();
        }
    }
};

/// The shortest decimal that stands for \p size, which is not negative.
Decimal ShortestDecimal(double size) {
    std::array<char, 64> text{};
    char* const end =
        std::to_chars(text.data(), text.data() + text.size(), size, std::chars_format::scientific).ptr;
    const std::string all(text.data(), end);
    const std::size_t e = all.find('e');
    std::string digits = all.substr(0, e);
    if (const std::size_t point = digits.find('.'); point != std::string::npos) {
        digits.erase(point, 1);
    }
    return {digits, std::stoi(all.substr(e + 1)) + 1};
}

double ValueOf(const Decimal& decimal) {
    const std::string text = "0." + decimal.digits + "0e" + std::to_string(decimal.exponent);
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

QLocale UsersNumerals() {
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    return locale;
}

} // namespace

QString FixedText(double value, int significant, int decimals) {
    Decimal decimal = ShortestDecimal(std::abs(value));
    decimal.RoundTo(significant);
    decimal.RoundTo(decimal.exponent + decimals);
    // Nothing is left for the printing to round.
    const double rounded = ValueOf(decimal);
    return UsersNumerals().toString(value < 0 && rounded > 0 ? -rounded : rounded, 'f', decimals);
}

std::optional<double> ParseNumber(const QString& text) {
    bool ok = false;
    const double value = UsersNumerals().toDouble(text.trimmed(), &ok);
    return ok && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

} // namespace orvanta::side_bar
