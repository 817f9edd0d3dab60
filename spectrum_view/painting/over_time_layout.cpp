// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/over_time_layout.h"

#include "spectrum_view/painting/axes.h"
#include "spectrum_view/painting/axis_ticks.h"
#include "spectrum_view/painting/plot_box.h"
#include "spectrum_view/painting/slot_frame.h"
#include "spectrum_view/painting/time_axis.h"
#include "spectrum_view/painting/whole_pixels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <functional>

namespace orvanta::spectrum_view {

namespace {

constexpr int kMostTicks = 12;
constexpr int kNumberGap = 8;
/// From a tick to its number.
constexpr int kTickGap = 2;
constexpr int kBarWidth = 10;
constexpr int kBarDistance = 6;
constexpr int kMostDecimals = 4;
constexpr double kLongestFixed = 1e6;

/// Decimals of the step; two more than its magnitude needs when it is not round.
int DecimalsOf(double step) {
    for (int decimals = 0; decimals <= kMostDecimals; ++decimals) {
        const double shifted = std::abs(step) * std::pow(10.0, decimals);
        if (shifted > 0.5 && std::abs(shifted - std::round(shifted)) < 1e-6 * shifted) {
            return decimals;
        }
    }
    return 2 + std::max(0, static_cast<int>(std::ceil(-std::log10(std::abs(step)))));
}

/// A value on an axis and its text.
struct Number {
    double place = 0; ///< 0 at the axis' begin, 1 at its end
    std::string text;
};
using Numbers = std::vector<Number>;
/// At most so many round numbers of an axis; none when fewer than two fit.
using NumbersOf = std::function<Numbers(int most)>;

Numbers RoundNumbers(double min, double max, int most) {
    const std::vector<double> ticks = RoundTicks(min, max, most);
    Numbers numbers;
    for (const double tick : ticks) {
        numbers.push_back({(tick - min) / (max - min), NumberText(tick, ticks[1] - ticks[0])});
    }
    return numbers;
}

NumbersOf Frequencies(const OverTimeInput& input) {
    return [&input](int most) { return RoundNumbers(input.axis.bottom, input.axis.top, most); };
}

NumbersOf Values(const VerticalRange& range) {
    return [range](int most) {
        if (range.divisions == 0) {
            return RoundNumbers(range.min, range.max, most);
        }
        Numbers numbers;
        const double step = range.Span() / range.divisions;
        for (const double tick : DividingTicks(range.min, range.max, range.divisions)) {
            numbers.push_back({(tick - range.min) / range.Span(), NumberText(tick, step)});
        }
        return range.divisions < most ? numbers : Numbers();
    };
}

NumbersOf Times(const OverTimeInput& input) {
    return [&input](int most) {
        const TimeTicks ticks =
            RoundTimes(input.startOfDay_s + input.begin_s, input.startOfDay_s + input.end_s, most);
        Numbers numbers;
        for (const double at : ticks.at_s) {
            numbers.push_back({(at - input.startOfDay_s - input.begin_s) / (input.end_s - input.begin_s),
                               TimeText(at, ticks.step_s)});
        }
        return numbers;
    };
}

int MostBeside(int height, int textHeight) {
    return std::clamp(height / std::max(1, 2 * textHeight), 2, kMostTicks);
}

int WidestOf(const Numbers& numbers, const TextExtent& extent) {
    int widest = 0;
    for (const Number& number : numbers) {
        widest = std::max(widest, extent(number.text).cx);
    }
    return widest;
}

int Between(int from, int to, double place) {
    return from + static_cast<int>(std::lround((to - from) * place));
}

/// Ticks up an axis with numbers at one side, none above its end.
struct NumberedAxis {
    std::vector<int> ticks;
    PlacedTexts numbers;
};

NumberedAxis Upright(const NumbersOf& of, int bottom, int top, int x, owl::TextAlign align,
                     const owl::TRect& area, const TextExtent& extent) {
    const int height = extent("0").cy;
    for (int most = MostBeside(bottom - top, height); most >= 2; --most) {
        NumberedAxis axis;
        for (const Number& number : of(most)) {
            const int y = Between(bottom, top, number.place);
            axis.ticks.push_back(y);
            axis.numbers.push_back(
                Placed(number.text, x, std::clamp(y - height / 2, top, std::max(top, area.bottom - height)),
                       align, area, extent));
        }
        if (!axis.ticks.empty() && Fits(axis.numbers, area, 0, {})) {
            return axis;
        }
    }
    return {};
}

NumberedAxis Level(const NumbersOf& of, int left, int right, int y, const owl::TRect& area,
                   const TextExtent& extent) {
    for (int most = kMostTicks; most >= 2; --most) {
        NumberedAxis axis;
        for (const Number& number : of(most)) {
            const int x = Between(left, right, number.place);
            axis.ticks.push_back(x);
            axis.numbers.push_back(Placed(number.text, x, y, owl::TextAlign::Center, area, extent));
        }
        if (!axis.ticks.empty() && Fits(axis.numbers, area, kNumberGap, {})) {
            return axis;
        }
    }
    return {};
}

/// Joins the unit to the numbers when it fits beside them.
void AddUnit(PlacedTexts& numbers, const PlacedText& unit, const owl::TRect& area,
             std::span<const owl::TRect> taken) {
    numbers.push_back(unit);
    if (numbers.size() == 1 || unit.text.empty() || !Fits(numbers, area, kNumberGap / 2, taken)) {
        numbers.pop_back();
    }
}

bool LeavesEnough(const owl::TRect& plot, const owl::TRect& slot) {
    return 2 * plot.Width() >= slot.Width() && 2 * plot.Height() >= slot.Height();
}

/// The plot with the margins of a mean plot, below the label.
OverTimeLayout WithoutNumbers(const OverTimeInput& input, const TextExtent& extent) {
    const owl::TRect& slot = input.frame.slot;
    OverTimeLayout layout;
    layout.plot = PlotArea(slot);
    layout.label = LabelOf(input.frame, extent);
    if (!layout.label.empty()) {
        owl::TRect below = layout.plot;
        below.top = std::max(below.top, layout.label.front().rect.bottom + 1);
        if (LeavesEnough(below, slot)) {
            layout.plot = below;
        } else {
            layout.label.clear();
        }
    }
    return layout;
}

bool HasNumbers(const OverTimeInput& input) {
    return input.frame.flags.axesText;
}

/// The plot with room for numbers so wide on its left and a line below.
owl::TRect WithMargins(const OverTimeInput& input, const owl::TRect& plot, int left, int textHeight) {
    const owl::TRect area = TextArea(input.frame.slot);
    return {std::max(plot.left, area.left + left + kTickLength + kTickGap), plot.top, plot.right,
            std::min(plot.bottom, area.bottom - textHeight - kTickLength - kTickGap)};
}

/// The bar at the right of the plot's place, before numbers so wide; empty where it leaves too little of the
/// slot to the plot or a measures box will lie.
owl::TRect ColorBarRect(const OverTimeInput& input, const owl::TRect& plot, int numbersWidth) {
    const int right =
        std::min(plot.right, TextArea(input.frame.slot).right - numbersWidth - kTickGap - kTickLength);
    const owl::TRect bar{right - kBarWidth, plot.top, right, plot.bottom};
    owl::TRect rest = plot;
    rest.right = bar.left - kBarDistance;
    const bool fits =
        numbersWidth > 0 && LeavesEnough(rest, input.frame.slot) && !bar.Touches(input.frame.box);
    return fits ? bar : owl::TRect{};
}

std::vector<owl::TRect> RectsOf(const PlacedTexts& texts) {
    std::vector<owl::TRect> rects;
    for (const PlacedText& text : texts) {
        rects.push_back(text.rect);
    }
    return rects;
}

} // namespace

OverTimeLayout CompressedArrayLayout(const OverTimeInput& input, const TextExtent& extent) {
    const owl::TRect area = TextArea(input.frame.slot);
    OverTimeLayout layout = WithoutNumbers(input, extent);
    const int height = extent("0").cy;
    if (HasNumbers(input)) {
        owl::TRect plot = WithMargins(input, layout.plot, 0, height);
        const NumbersOf times = Times(input);
        plot =
            WithMargins(input, plot, WidestOf(times(MostBeside(RowsHeight(plot), height)), extent), height);
        plot.right = SlotX(SlotAround(plot), kPlotRight);
        if (LeavesEnough(plot, input.frame.slot)) {
            layout.plot = plot;
            const int numbersRight = plot.left - kTickLength - kTickGap;
            NumberedAxis side = Upright(times, plot.bottom, plot.bottom - RowsHeight(plot), numbersRight,
                                        owl::TextAlign::Right, area, extent);
            const int y = plot.bottom + kTickLength + kTickGap;
            NumberedAxis below = Level(Frequencies(input), plot.left, plot.right, y, area, extent);
            layout.side = std::move(side.numbers);
            layout.below = std::move(below.numbers);
            layout.yTicks = std::move(side.ticks);
            layout.xTicks = std::move(below.ticks);
            AddUnit(layout.below, Placed("Hz", area.right, y, owl::TextAlign::Right, area, extent), area, {});
            KeepFitting({&layout.label, &layout.below, &layout.side}, area, 0, {input.frame.box});
        }
    }
    return layout;
}

OverTimeLayout TimeFrequencyLayout(const OverTimeInput& input, const TextExtent& extent) {
    const owl::TRect area = TextArea(input.frame.slot);
    OverTimeLayout layout = WithoutNumbers(input, extent);
    if (!HasNumbers(input)) {
        return layout;
    }
    const int height = extent("0").cy;
    const int unitTop = area.top + height + 1;
    const NumbersOf frequencies = Frequencies(input);
    const NumbersOf values = Values(input.frame.vertical);
    owl::TRect plot = WithMargins(input, layout.plot, 0, height);
    plot.top = std::max(plot.top, unitTop);
    const int most = MostBeside(plot.Height(), height);
    plot = WithMargins(input, plot, std::max(WidestOf(frequencies(most), extent), extent("Hz").cx), height);
    if (!LeavesEnough(plot, input.frame.slot)) {
        return layout;
    }
    layout.colorBar = ColorBarRect(input, plot, WidestOf(values(most), extent));
    if (!layout.colorBar.IsEmpty()) {
        plot.right = layout.colorBar.left - kBarDistance;
    }
    layout.plot = plot;
    NumberedAxis side = Upright(frequencies, plot.bottom - 1, plot.top, plot.left - kTickLength - kTickGap,
                                owl::TextAlign::Right, area, extent);
    const int y = plot.bottom + kTickLength + kTickGap;
    NumberedAxis below = Level(Times(input), plot.left, plot.right, y, area, extent);
    layout.side = std::move(side.numbers);
    layout.below = std::move(below.numbers);
    layout.yTicks = std::move(side.ticks);
    layout.xTicks = std::move(below.ticks);
    if (!layout.colorBar.IsEmpty()) {
        NumberedAxis bar =
            Upright(values, plot.bottom - 1, plot.top, layout.colorBar.right + kTickLength + kTickGap,
                    owl::TextAlign::Left, area, extent);
        layout.barNumbers = std::move(bar.numbers);
        layout.barTicks = std::move(bar.ticks);
    }
    KeepFitting({&layout.label, &layout.below, &layout.side, &layout.barNumbers}, area, 0,
                {layout.colorBar, input.frame.box});
    std::vector<owl::TRect> taken = RectsOf(layout.label);
    taken.push_back(input.frame.box);
    AddUnit(layout.side,
            Placed("Hz", plot.left - kTickLength - kTickGap, plot.top - height - 1, owl::TextAlign::Right,
                   area, extent),
            area, taken);
    AddUnit(layout.barNumbers,
            Placed(input.frame.unit, area.right, plot.top - height - 1, owl::TextAlign::Right, area, extent),
            area, taken);
    if (layout.barNumbers.empty()) {
        layout.colorBar = {};
        layout.barTicks.clear();
    }
    return layout;
}

owl::TRect SlotAround(const owl::TRect& plot) {
    const int width = static_cast<int>(std::lround(plot.Width() / kPlotWidth));
    const int height = static_cast<int>(std::lround(plot.Height() / kPlotHeight));
    const int left = plot.left - WholePixels(width * kPlotLeft);
    const int top = plot.top - WholePixels(height * kPlotTop);
    return {left, top, left + width, top + height};
}

int RowsHeight(const owl::TRect& plot) {
    return WholePixels(plot.Height() * kRowsShare);
}

std::string NumberText(double value, double step) {
    const int decimals = DecimalsOf(step);
    std::array<char, 400> text{};
    if (decimals > kMostDecimals || std::abs(value) >= kLongestFixed) {
        std::snprintf(text.data(), text.size(), "%.3g", value);
    } else {
        std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    }
    return text.data();
}

void PaintOverTimeAxes(owl::TDC& dc, const OverTimeLayout& layout) {
    const owl::TRect& plot = layout.plot;
    dc.SelectPen({kAxisGrey, 1, owl::PenStyle::Solid});
    dc.Line({plot.left - 1, plot.top}, {plot.left - 1, plot.bottom});
    dc.Line({plot.left - 1, plot.bottom}, {plot.right, plot.bottom});
    for (const int y : layout.yTicks) {
        dc.Line({plot.left - kTickLength, y}, {plot.left - 1, y});
    }
    for (const int x : layout.xTicks) {
        dc.Line({x, plot.bottom}, {x, plot.bottom + kTickLength - 1});
    }
    for (const int y : layout.barTicks) {
        dc.Line({layout.colorBar.right, y}, {layout.colorBar.right + kTickLength - 1, y});
    }
    dc.SetTextAlign(owl::TextAlign::Left);
    dc.SetTextColor(kTextGrey);
    for (const PlacedTexts* texts : {&layout.side, &layout.below, &layout.barNumbers, &layout.label}) {
        PaintTexts(dc, *texts);
    }
}

} // namespace orvanta::spectrum_view
