// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/color_scale.h"

#include "host/chart_view/topography/contours.h"
#include "host/chart_view/topography/map_colors.h"
#include "host/chart_view/topography/map_look.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace orvanta::chart {

namespace {

constexpr int kGap = 4;
constexpr int kBarWidth = 10;
constexpr int kLongestBar = 260;
/// Numbers have room for so much at least, so that heads beside each other are of one size.
constexpr std::string_view kUsualNumber = "00.000";

/// Of the bar's height, from its upper end.
double ShareOf(std::size_t number, std::size_t count) {
    return count < 2 ? 0.5 : 1 - static_cast<double>(number) / static_cast<double>(count - 1);
}

/// Pixels of the bar from its lower end to the upper one.
std::vector<std::uint32_t> PixelsOf(const Colors& colors, const ColorScale& scale) {
    const bool flat = !(scale.high > scale.low);
    std::vector<std::uint32_t> pixels;
    for (std::size_t i = 0; i < kPaletteColors; ++i) {
        pixels.push_back(PixelOf(colors[flat ? kPaletteColors / 2 : i], 1));
    }
    return pixels;
}

/// \param line paints the line of a level: its share from the lower end, and its colour
void ForEachLevel(const Colors& colors, const ColorScale& scale, const MapLook& look, const auto& line) {
    for (const double level : ContourLevels(scale.low, scale.high, look.contours)) {
        line((level - scale.low) / (scale.high - scale.low),
             LineOn(colors[ColorIndex(level, scale.low, scale.high)]));
    }
}

void PaintUprightNumbers(owl::TDC& dc, const owl::TRect& bar, const ColorScale& scale) {
    const int line = dc.GetTextExtent("0").cy;
    // The ends stand flush with the bar; what lies between is left out where it would touch them.
    const auto count = scale.numbers.size();
    const std::size_t step = static_cast<int>(count) * line * 3 / 2 <= bar.Height() ? 1 : count - 1;
    for (std::size_t i = 0; i < count; i += std::max<std::size_t>(1, step)) {
        const int top = bar.top + static_cast<int>(std::lround(ShareOf(i, count) * (bar.Height() - line)));
        dc.TextOut({bar.right + kGap, top}, scale.numbers[i]);
    }
}

} // namespace

ScaleRoom RoomOfScale(const owl::TDC& dc, const ColorScale& scale) {
    const owl::TSize usual = dc.GetTextExtent(kUsualNumber);
    int numbers = usual.cx;
    for (const std::string& number : scale.numbers) {
        numbers = std::max(numbers, dc.GetTextExtent(number).cx);
    }
    const int unit = dc.GetTextExtent(scale.unit).cx;
    return {{std::max(kBarWidth + kGap + numbers, unit), 3 * usual.cy},
            {2 * numbers + unit + 2 * kGap, kBarWidth + usual.cy}};
}

ScaleRoom RoomForBoth(const ScaleRoom& a, const ScaleRoom& b) {
    const auto larger = [](const owl::TSize& one, const owl::TSize& other) {
        return owl::TSize{std::max(one.cx, other.cx), std::max(one.cy, other.cy)};
    };
    return {larger(a.beside, b.beside), larger(a.below, b.below)};
}

void PaintUprightScale(owl::TDC& dc, const owl::TRect& area, const Colors& colors, const ColorScale& scale,
                       const MapLook& look) {
    const int line = dc.GetTextExtent("0").cy;
    const int above = scale.unit.empty() ? 0 : line + kGap / 2;
    const int height = std::min(area.Height() - 2 * above, kLongestBar);
    const int top = area.top + (area.Height() - height) / 2;
    const owl::TRect bar{area.left, top, area.left + kBarWidth, top + height};
    if (bar.IsEmpty()) {
        return;
    }
    owl::TImage strip{1, static_cast<int>(kPaletteColors), PixelsOf(colors, scale)};
    std::ranges::reverse(strip.pixels);
    dc.DrawImage(bar, strip);
    ForEachLevel(colors, scale, look, [&](double share, owl::TColor color) {
        const int y = bar.top + static_cast<int>(std::lround((1 - share) * (bar.Height() - 1)));
        dc.SelectPen({color, 1});
        dc.Line({bar.left + 1, y}, {bar.right - 2, y});
    });
    dc.FrameRect(bar, Mixed(look.textColor, look.backColor, 0.4));
    dc.SetTextColor(look.textColor);
    dc.SetTextAlign(owl::TextAlign::Left);
    if (!scale.unit.empty()) {
        dc.TextOut({area.left, bar.top - above}, scale.unit);
    }
    PaintUprightNumbers(dc, bar, scale);
}

void PaintLyingScale(owl::TDC& dc, const owl::TRect& area, const Colors& colors, const ColorScale& scale,
                     const MapLook& look) {
    const owl::TRect bar{area.left, area.top, area.right, area.top + kBarWidth};
    dc.DrawImage(bar, {static_cast<int>(kPaletteColors), 1, PixelsOf(colors, scale)});
    ForEachLevel(colors, scale, look, [&](double share, owl::TColor color) {
        const int x = bar.left + static_cast<int>(std::lround(share * (bar.Width() - 1)));
        dc.SelectPen({color, 1});
        dc.Line({x, bar.top + 1}, {x, bar.bottom - 2});
    });
    dc.FrameRect(bar, Mixed(look.textColor, look.backColor, 0.4));
    dc.SetTextColor(look.textColor);
    const int middle = (area.left + area.right) / 2;
    if (scale.numbers.size() < 2) {
        dc.SetTextAlign(owl::TextAlign::Center);
        dc.TextOut({middle, bar.bottom},
                   scale.numbers.empty() ? scale.unit : scale.numbers.front() + " " + scale.unit);
        return;
    }
    const int low = dc.GetTextExtent(scale.numbers.front()).cx;
    const int high = dc.GetTextExtent(scale.numbers.back()).cx;
    dc.SetTextAlign(owl::TextAlign::Left);
    dc.TextOut({bar.left, bar.bottom}, scale.numbers.front());
    dc.TextOut({bar.right - high, bar.bottom}, scale.numbers.back());
    const int unit = dc.GetTextExtent(scale.unit).cx;
    // In the middle of the bar, but for one that is pushed aside by a long number.
    const int left = std::clamp(middle - unit / 2, bar.left + low + kGap,
                                std::max(bar.left + low + kGap, bar.right - high - kGap - unit));
    dc.TextOut({left, bar.bottom}, scale.unit);
}

} // namespace orvanta::chart
