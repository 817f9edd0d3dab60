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
constexpr int kShortTick = 2;
/// Slots less high have short ticks.
constexpr int kLowSlot = 220;
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

/// The powers of 1000 to try: none first, then the one of the largest number and the next, whose numbers are
/// shorter.
std::vector<int> PowersFor(const VerticalRange& range) {
    const double largest = std::max(std::abs(range.min), std::abs(range.max));
    const int power = 3 * static_cast<int>(std::floor(std::log10(largest) / 3));
    if (!std::isfinite(largest) || std::abs(power) > kFarthestPower) {
        return {};
    }
    return power == 0 ? std::vector{0, 3} : std::vector{0, power, power + 3};
}

/// True when one decimal says the value; ends and divisions of a range are rounded by nature.
bool IsOneDecimal(double value) {
    constexpr double kTolerance = 1e-6;
    return std::abs(10 * value - std::round(10 * value)) < kTolerance * std::max(1.0, std::abs(10 * value));
}

bool HasEqualNeighbours(const PlacedTexts& numbers) {
    return std::adjacent_find(numbers.begin(), numbers.end(), [](const PlacedText& a, const PlacedText& b) {
               return a.text == b.text;
           }) != numbers.end();
}

/// Right edge of the numbers of the vertical axis.
int VerticalNumbersRight(const owl::TRect& slot) {
    return AxisOrigin(slot).x - TickLengthIn(slot) * 3 / 2; // and half a tick of air
}

std::vector<double> ValuesAtTicks(const VerticalRange& range, int most) {
    return range.divisions > 0 ? DividingTicks(range.min, range.max, range.divisions)
                               : RoundTicks(range.min, range.max, most);
}

/// What becomes of an axis with a number that its margin is too narrow for.
enum class TooWide {
    Refuse,  ///< none of its numbers stands there
    LeaveOut ///< this one does not
};

/// Numbers of the vertical axis at the values, in multiples of 10^power; nothing when they do not fit.
std::optional<PlacedTexts> VerticalNumbers(const owl::TRect& slot, const VerticalRange& range,
                                           const std::vector<double>& values, int power, TooWide wide,
                                           const TextExtent& extent) {
    const owl::TRect area = TextArea(slot);
    const int right = VerticalNumbersRight(slot);
    const int height = DigitRowsOf(extent("0").cy).height;
    const double unit = std::pow(10.0, power);
    PlacedTexts numbers;
    for (const double value : values) {
        if (range.divisions == 0 && !IsOneDecimal(value / unit)) {
            return std::nullopt;
        }
        std::string text = OneDecimal(value / unit);
        if (extent(text).cx > right - area.left) {
            if (wide == TooWide::LeaveOut) {
                continue;
            }
            return std::nullopt;
        }
        const int top = std::max(area.top, ValueY(slot, range, value) - height / 2);
        numbers.push_back(PlacedDigits(std::move(text), right, top, owl::TextAlign::Right, area, extent));
    }
    if (numbers.size() < 2 || HasEqualNeighbours(numbers) || !Fits(numbers, area, 0, {})) {
        return std::nullopt;
    }
    return numbers;
}

PlacedTexts FrequencyNumbers(const owl::TRect& slot, const FrequencyAxis& axis,
                             const std::vector<double>& ticks, int top, const TextExtent& extent) {
    PlacedTexts numbers;
    for (const double hz : ticks) {
        if (!IsOneDecimal(hz)) {
            return {};
        }
        numbers.push_back(PlacedDigits(OneDecimal(hz), FrequencyX(slot, axis, hz), top,
                                       owl::TextAlign::Center, TextArea(slot), extent));
    }
    return numbers;
}

} // namespace

int TickLengthIn(const owl::TRect& slot) {
    return slot.Height() < kLowSlot ? kShortTick : kTickLength;
}

int NumbersTop(const owl::TRect& slot, int digitsHeight, int marksHeight) {
    return AxisOrigin(slot).y +
           std::max({TickLengthIn(slot) + 1, marksHeight + 1, (digitsHeight + 1) / 2 + 1});
}

owl::TFont NumbersFont(const owl::TRect& slot, owl::TFont font, int marksHeight,
                       const std::function<owl::TSize(const owl::TFont&, std::string_view)>& extentIn) {
    const owl::TRect area = TextArea(slot);
    const auto fits = [&] {
        const owl::TSize size = extentIn(font, "00.0");
        const int height = DigitRowsOf(size.cy).height;
        return NumbersTop(slot, height, marksHeight) + height <= area.bottom &&
               size.cx <= VerticalNumbersRight(slot) - area.left;
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
    const bool low = numbersTop + DigitRowsOf(extent("0").cy).height > area.bottom;
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
            PlacedDigits("Hz", area.right - 2, numbersTop, owl::TextAlign::Right, area, extent));
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
    const auto number = [&](int power, TooWide wide) {
        for (int most = std::max(2, rows); most >= 2 && layout.numbers.empty(); --most) {
            const std::vector<double> values = ValuesAtTicks(range, most);
            if (auto numbers = VerticalNumbers(slot, range, values, power, wide, extent)) {
                layout.numbers = std::move(*numbers);
                layout.multiplier = power == 0 ? "" : "×10" + Superscript(power);
                ticks = values;
            }
        }
    };
    const std::vector<int> powers = PowersFor(range);
    for (const int power : powers) {
        number(power, TooWide::Refuse);
    }
    if (!powers.empty()) {
        number(0, TooWide::LeaveOut);
    }
    for (const double value : ticks) {
        layout.ticks.push_back(ValueY(slot, range, value));
    }
    return layout;
}

} // namespace orvanta::spectrum_view
