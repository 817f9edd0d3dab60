// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/map_frame.h"

#include "host/chart_view/topography/contours.h"
#include "host/chart_view/topography/map_colors.h"
#include "host/chart_view/topography/text_fit.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace orvanta::chart {

namespace {

constexpr int kGap = 4;
constexpr int kBarWidth = 10;
constexpr int kTallestBar = 260;
constexpr int kShortestBar = 90;
/// A scale leaves so much for the head on each side, or is left out.
constexpr int kSmallestBody = 72;
/// Below so many lines of the font a map has no title.
constexpr int kLinesForTitle = 4;
constexpr std::uint8_t kNoticeGround = 190;
/// Numbers have room for so much at least, so that heads beside each other are of one size.
constexpr std::string_view kUsualNumber = "00.000";

/// Of the bar's height, from its upper end.
double ShareOf(std::size_t number, std::size_t count) {
    return count < 2 ? 0.5 : 1 - static_cast<double>(number) / static_cast<double>(count - 1);
}

void PaintNumbers(owl::TDC& dc, const owl::TRect& bar, const ColorScale& scale) {
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

owl::TSize ScaleExtent(const owl::TDC& dc, const ColorScale& scale) {
    int numbers = dc.GetTextExtent(kUsualNumber).cx;
    for (const std::string& number : scale.numbers) {
        numbers = std::max(numbers, dc.GetTextExtent(number).cx);
    }
    return {std::max(kBarWidth + kGap + numbers, dc.GetTextExtent(scale.unit).cx),
            3 * dc.GetTextExtent("0").cy};
}

MapFrame LayOutMap(const owl::TRect& area, int lineHeight, const owl::TSize& scale, bool withTitle) {
    MapFrame frame;
    frame.body = area.InflatedBy(-kGap, -kGap);
    if (withTitle && frame.body.Height() >= kLinesForTitle * lineHeight) {
        frame.title = {frame.body.left, frame.body.top, frame.body.right, frame.body.top + lineHeight};
        frame.body.top = frame.title.bottom + kGap;
    }
    const int left = frame.body.right - scale.cx;
    if (scale.cx > 0 && left - 2 * kGap - frame.body.left >= kSmallestBody &&
        frame.body.Height() >= std::max(kSmallestBody, scale.cy)) {
        frame.scale = {left, frame.body.top, frame.body.right, frame.body.bottom};
        frame.body.right = left - 2 * kGap;
    }
    return frame;
}

owl::TRect Beside(const owl::TRect& scale, int middle, int radius) {
    const int half = std::max(radius, kShortestBar / 2);
    return {scale.left, std::max(scale.top, middle - half), scale.right,
            std::min(scale.bottom, middle + half)};
}

void PaintTitle(owl::TDC& dc, const owl::TRect& area, const std::string& title, owl::TColor color) {
    dc.SetTextColor(color);
    dc.SetTextAlign(owl::TextAlign::Center);
    dc.TextOut({(area.left + area.right) / 2, area.top}, Elided(dc, title, area.Width()));
}

MapFrame BeginMap(owl::TDC& dc, const owl::TRect& area, const std::string& title, const ColorScale& scale,
                  bool empty, const MapLook& look) {
    dc.SelectFont(look.font);
    const MapFrame frame =
        LayOutMap(area, dc.GetTextExtent("0").cy,
                  look.scale && !empty ? ScaleExtent(dc, scale) : owl::TSize{}, !title.empty());
    if (!frame.title.IsEmpty()) {
        PaintTitle(dc, frame.title, title, look.textColor);
    }
    return frame;
}

void PaintScale(owl::TDC& dc, const owl::TRect& area, const Colors& colors, const ColorScale& scale,
                const MapLook& look) {
    const int line = dc.GetTextExtent("0").cy;
    const int above = scale.unit.empty() ? 0 : line + kGap / 2;
    const int height = std::min(area.Height() - 2 * above, kTallestBar);
    const int top = area.top + (area.Height() - height) / 2;
    const owl::TRect bar{area.left, top, area.left + kBarWidth, top + height};
    if (bar.IsEmpty()) {
        return;
    }
    owl::TImage strip{1, static_cast<int>(kPaletteColors), {}};
    for (std::size_t i = kPaletteColors; i-- > 0;) {
        const bool flat = !(scale.high > scale.low);
        strip.pixels.push_back(PixelOf(colors[flat ? kPaletteColors / 2 : i], 1));
    }
    dc.DrawImage(bar, strip);
    for (const double level : ContourLevels(scale.low, scale.high, look.contours)) {
        const double share = (scale.high - level) / (scale.high - scale.low);
        const int y = bar.top + static_cast<int>(std::lround(share * (bar.Height() - 1)));
        dc.SelectPen({LineOn(colors[ColorIndex(level, scale.low, scale.high)]), 1});
        dc.Line({bar.left + 1, y}, {bar.right - 2, y});
    }
    dc.FrameRect(bar, Mixed(look.textColor, look.backColor, 0.4));
    dc.SetTextColor(look.textColor);
    dc.SetTextAlign(owl::TextAlign::Left);
    if (!scale.unit.empty()) {
        dc.TextOut({area.left, bar.top - above}, scale.unit);
    }
    PaintNumbers(dc, bar, scale);
}

void PaintNotice(owl::TDC& dc, const owl::TRect& area, const std::string& text, const MapLook& look) {
    const int line = dc.GetTextExtent("0").cy;
    const std::vector<std::string> lines = Wrapped(dc, text, area.Width());
    const auto height = static_cast<int>(lines.size()) * line;
    if (height > area.Height()) {
        return;
    }
    int width = 0;
    for (const std::string& part : lines) {
        width = std::max(width, dc.GetTextExtent(part).cx);
    }
    const int middle = (area.left + area.right) / 2;
    int top = (area.top + area.bottom - height) / 2;
    dc.BlendRect(owl::TRect{middle, top, middle, top + height}.InflatedBy(width / 2 + kGap, kGap / 2),
                 look.backColor, kNoticeGround);
    dc.SetTextColor(look.textColor);
    dc.SetTextAlign(owl::TextAlign::Center);
    for (const std::string& part : lines) {
        dc.TextOut({middle, top}, part);
        top += line;
    }
}

} // namespace orvanta::chart
