// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/axes.h"

#include "spectrum_view/painting/axis_ticks.h"
#include "spectrum_view/painting/plot_box.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <optional>

namespace orvanta::spectrum_view {

namespace {

constexpr int kMostTicks = 12;
/// Of the vertical axis.
constexpr int kMostLevels = 8;
/// Rows of text from level to level, at least.
constexpr int kLevelPitch = 2;
/// Between ticks without numbers, at least.
constexpr int kTickPitch = 24;
constexpr int kNumberGap = 6;
/// Beyond these powers of ten nobody measures anything, and numbers stay away.
constexpr int kFarthestPower = 30;

std::string OneDecimal(double value) {
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), "%.1f", value);
    return text.data();
}

std::string Superscript(int number) {
    static constexpr std::array kDigits{"⁰", "¹", "²", "³", "⁴", "⁵", "⁶", "⁷", "⁸", "⁹"};
    std::string text;
    for (const char digit : std::to_string(number)) {
        text += digit == '-' ? "⁻" : kDigits[static_cast<std::size_t>(digit - '0')];
    }
    return text;
}

/// The powers of 1000 to try: none first, then the one of the largest number.
std::vector<int> PowersFor(const VerticalRange& range) {
    const double largest = std::max(std::abs(range.min), std::abs(range.max));
    const int power = 3 * static_cast<int>(std::floor(std::log10(largest) / 3));
    if (!std::isfinite(largest) || std::abs(power) > kFarthestPower) {
        return {};
    }
    return power == 0 ? std::vector{0} : std::vector{0, power};
}

bool HasEqualNeighbours(const PlacedTexts& numbers) {
    return std::adjacent_find(numbers.begin(), numbers.end(), [](const PlacedText& a, const PlacedText& b) {
               return a.text == b.text;
           }) != numbers.end();
}

std::vector<double> ValuesAtTicks(const VerticalRange& range, int most) {
    return range.divisions > 0 ? DividingTicks(range.min, range.max, range.divisions)
                               : RoundTicks(range.min, range.max, most);
}

/// Numbers of the vertical axis at the values, in multiples of 10^power; nothing when they do not fit.
std::optional<PlacedTexts> VerticalNumbers(const owl::TRect& slot, const VerticalRange& range,
                                           const std::vector<double>& values, int power,
                                           const TextExtent& extent) {
    const owl::TRect area = TextArea(slot);
    const int right = AxisOrigin(slot).x - kTickLength - 2;
    const int height = extent("0").cy;
    const double unit = std::pow(10.0, power);
    const auto fits = [&](double value) { return extent(OneDecimal(value / unit)).cx <= right - area.left; };
    if (values.size() < 2 || !fits(values.front()) || !fits(values.back())) {
        return std::nullopt;
    }
    PlacedTexts numbers;
    for (const double value : values) {
        const int top = std::max(area.top, ValueY(slot, range, value) - height / 2);
        PlacedText number = Placed(OneDecimal(value / unit), right, top, owl::TextAlign::Right, area, extent);
        if (number.rect.right > right) {
            return std::nullopt;
        }
        numbers.push_back(std::move(number));
    }
    if (HasEqualNeighbours(numbers) || !Fits(numbers, area, 0, {})) {
        return std::nullopt;
    }
    return numbers;
}

PlacedTexts FrequencyNumbers(const owl::TRect& slot, const FrequencyAxis& axis,
                             const std::vector<double>& ticks, int top, const TextExtent& extent) {
    PlacedTexts numbers;
    for (const double hz : ticks) {
        numbers.push_back(Placed(OneDecimal(hz), FrequencyX(slot, axis, hz), top, owl::TextAlign::Center,
                                 TextArea(slot), extent));
    }
    return numbers;
}

} // namespace

int NumbersTop(const owl::TRect& slot, int textHeight, int marksHeight) {
    return AxisOrigin(slot).y + std::max({kTickLength + 1, marksHeight + 1, (textHeight + 1) / 2});
}

owl::TFont NumbersFont(const owl::TRect& slot, owl::TFont font, int marksHeight,
                       const std::function<int(const owl::TFont&)>& heightOf) {
    const auto fits = [&] {
        const int height = heightOf(font);
        return NumbersTop(slot, height, marksHeight) + height <= TextArea(slot).bottom;
    };
    while (font.height > kSmallestNumbers && !fits()) {
        --font.height;
    }
    return font;
}

owl::TRect TextArea(const owl::TRect& slot) {
    return slot.InflatedBy(-2, -1);
}

int ValueY(const owl::TRect& slot, const VerticalRange& range, double value) {
    return SlotY(slot, kPlotBottom - (value - range.min) * kPlotHeight / range.Span());
}

AxisLayout FrequencyAxisLayout(const owl::TRect& slot, const FrequencyAxis& axis, int numbersTop,
                               const TextExtent& extent) {
    const owl::TRect area = TextArea(slot);
    AxisLayout layout;
    std::vector<double> ticks;
    const bool low = numbersTop + extent("0").cy > area.bottom;
    const int pitch = std::max(extent(OneDecimal(axis.bottom)).cx, extent(OneDecimal(axis.top)).cx);
    const int start = low ? 0 : std::min(kMostTicks, area.Width() / (pitch + kNumberGap) + 1);
    for (int most = start; most >= 2 && layout.numbers.empty(); --most) {
        ticks = RoundTicks(axis.bottom, axis.top, most);
        layout.numbers = FrequencyNumbers(slot, axis, ticks, numbersTop, extent);
        if (!Fits(layout.numbers, area, kNumberGap, {})) {
            layout.numbers.clear();
        }
    }
    if (layout.numbers.empty()) {
        ticks = RoundTicks(axis.bottom, axis.top, std::min(PlotArea(slot).Width() / kTickPitch, kMostTicks));
    } else {
        layout.numbers.push_back(
            Placed("Hz", area.right - 2, numbersTop, owl::TextAlign::Right, area, extent));
        if (!Fits(layout.numbers, area, kNumberGap / 2, {})) {
            layout.numbers.pop_back();
        }
    }
    for (const double hz : ticks) {
        layout.ticks.push_back(FrequencyX(slot, axis, hz));
    }
    return layout;
}

AxisLayout VerticalAxisLayout(const owl::TRect& slot, const VerticalRange& range, const TextExtent& extent) {
    const int rows =
        std::min(PlotArea(slot).Height() / std::max(1, kLevelPitch * extent("0").cy), kMostLevels);
    AxisLayout layout;
    std::vector<double> ticks = ValuesAtTicks(range, std::max(2, rows));
    for (const int power : PowersFor(range)) {
        for (int most = std::max(2, rows); most >= 2 && layout.numbers.empty(); --most) {
            const std::vector<double> values = ValuesAtTicks(range, most);
            if (auto numbers = VerticalNumbers(slot, range, values, power, extent)) {
                layout.numbers = std::move(*numbers);
                layout.multiplier = power == 0 ? "" : "×10" + Superscript(power);
                ticks = values;
            }
        }
    }
    for (const double value : ticks) {
        layout.ticks.push_back(ValueY(slot, range, value));
    }
    return layout;
}

} // namespace orvanta::spectrum_view
