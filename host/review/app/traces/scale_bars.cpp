// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/scale_bars.h"

#include "host/review/app/traces/trace_scales.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <utility>

namespace orvanta::review {

namespace {

constexpr int kFromLeft = 4;
/// Opacity of what is laid between the traces and the text.
constexpr std::uint8_t kBehind = 190;
/// Of a line's room, at least 20 pixels.
constexpr double kMostOfRoom = 0.9;
constexpr double kLeastHeight = 20;
/// Bars so many texts high have theirs at the upper end, where it does not lie over the trace.
constexpr int kHighBar = 3;

} // namespace

std::string ValueText(double value, const std::string& unit) {
    const double size = std::abs(value);
    const int decimals = size >= 100 || size == 0 ? 0 : size >= 10 ? 1 : size >= 1 ? 2 : 3;
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    std::string number = text.data();
    if (number.find('.') != std::string::npos) {
        number.erase(number.find_last_not_of('0') + 1);
        if (number.ends_with('.')) {
            number.pop_back();
        }
    }
    return unit.empty() ? number : number + " " + unit;
}

std::string BarText(double value, const std::string& unit, bool negativeUp) {
    const std::string text = ValueText(value, unit);
    return negativeUp ? "\u2212" + text + " \u2191" : text;
}

std::vector<ScaleBar> ScaleBarsOf(const PageInput& page) {
    std::vector<ScaleBar> bars;
    std::vector<std::pair<TraceGroup, std::string>> seen;
    const owl::TRect& plot = page.layout.plot;
    for (std::size_t i = 0; i < page.lines.size(); ++i) {
        const LineInput& line = page.lines[i];
        const std::pair kind{GroupOf(line.channel->type), line.channel->unit};
        const bool known = std::find(seen.begin(), seen.end(), kind) != seen.end();
        if ((known && !line.selected) || line.data == nullptr) {
            continue;
        }
        if (!known) {
            seen.push_back(kind);
        }
        const double most = std::max(kLeastHeight, page.layout.spacing * kMostOfRoom);
        const double unitsPerPixel = std::abs(line.scaling.unitsPerPixel);
        const double value = RoundValueBelow(most * unitsPerPixel);
        const double height = value / unitsPerPixel;
        const double middle = page.layout.YOf(static_cast<int>(i));
        const double top = std::clamp(middle - height / 2, double(plot.top),
                                      std::max<double>(plot.top, plot.bottom - height));
        bars.push_back({plot.left + kFromLeft, static_cast<int>(std::lround(top)),
                        static_cast<int>(std::lround(top + height)),
                        BarText(value, line.channel->unit, line.scaling.unitsPerPixel < 0),
                        page.colors.Of(kind.first)});
    }
    return bars;
}

void PaintScaleBars(owl::TDC& dc, const PageInput& page) {
    for (const ScaleBar& bar : ScaleBarsOf(page)) {
        const owl::TSize size = dc.GetTextExtent(bar.text);
        const bool high = bar.bottom - bar.top >= kHighBar * size.cy;
        const int y = high ? bar.top : (bar.top + bar.bottom - size.cy) / 2;
        dc.BlendRect({bar.x, y, bar.x + size.cx + 10, y + size.cy}, page.colors.background, kBehind);
        dc.FillRect({bar.x, bar.top, bar.x + 2, bar.bottom}, bar.color);
        dc.FillRect({bar.x, bar.top, bar.x + 5, bar.top + 1}, bar.color);
        dc.FillRect({bar.x, bar.bottom - 1, bar.x + 5, bar.bottom}, bar.color);
        dc.SetTextColor(bar.color);
        dc.TextOut({bar.x + 7, y}, bar.text);
    }
}

} // namespace orvanta::review
