// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/map_title.h"

#include "host/chart_view/topography/text_fit.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace orvanta::chart {

namespace {

/// A title takes at most one in so many pixels of a map's height.
constexpr int kShareOfTitle = 4;
constexpr int kSmallestFont = 9; ///< pixels: what is smaller is not read
constexpr std::array kFits{TitleFit{1, 100}, TitleFit{1, 90}, TitleFit{2, 100}, TitleFit{2, 90},
                           TitleFit{2, 80}};

owl::TFont FontOf(owl::TFont font, const TitleFit& fit) {
    font.height = std::max(std::min(font.height, kSmallestFont), font.height * fit.percent / 100);
    return font;
}

std::vector<std::string> LinesOf(const std::string& title, const TitleFit& fit) {
    constexpr std::string_view kBreak = " - ";
    const std::size_t at = title.find(kBreak);
    if (fit.lines < 2 || at == std::string::npos) {
        return {title};
    }
    return {title.substr(0, at + kBreak.size() - 1), title.substr(at + kBreak.size())};
}

bool Fits(const owl::TDC& dc, std::span<const std::string> titles, const TitleFit& fit, int width) {
    return std::ranges::all_of(titles, [&](const std::string& title) {
        return std::ranges::all_of(
            LinesOf(title, fit), [&](const std::string& line) { return dc.GetTextExtent(line).cx <= width; });
    });
}

} // namespace

TitleFit FitTitles(owl::TDC& dc, const owl::TFont& font, std::span<const std::string> titles,
                   const owl::TSize& room) {
    TitleFit last;
    for (const TitleFit& fit : kFits) {
        if (fit.lines > 1 && TitleHeight(dc, font, fit, room.cy) == 0) {
            continue;
        }
        dc.SelectFont(FontOf(font, fit));
        if (Fits(dc, titles, fit, room.cx)) {
            return fit;
        }
        last = fit;
    }
    last.whole = false;
    return last;
}

int TitleHeight(owl::TDC& dc, const owl::TFont& font, const TitleFit& fit, int room) {
    dc.SelectFont(FontOf(font, fit));
    const int height = fit.lines * dc.GetTextExtent("0").cy;
    return height <= room / kShareOfTitle ? height : 0;
}

void PaintTitle(owl::TDC& dc, const owl::TRect& area, const std::string& title, const owl::TFont& font,
                const TitleFit& fit, owl::TColor color) {
    dc.SelectFont(FontOf(font, fit));
    dc.SetTextColor(color);
    dc.SetTextAlign(owl::TextAlign::Center);
    int top = area.top;
    for (const std::string& line : LinesOf(title, fit)) {
        dc.TextOut({(area.left + area.right) / 2, top}, Elided(dc, line, area.Width()));
        top += dc.GetTextExtent("0").cy;
    }
}

} // namespace orvanta::chart
