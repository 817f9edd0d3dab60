// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/page_parts.h"

#include "spectrum_view/painting/band_colors.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace orvanta::spectrum_view {

namespace {

constexpr owl::TColor kQuietGrey = owl::Rgb(80, 80, 80);
constexpr owl::TColor kPlateBorder = owl::Rgb(190, 190, 190);

/// The text in lines of at most so many pixels, broken at blanks; a longer word has a line of its own.
std::vector<std::string> Lines(const owl::TDC& dc, const std::string& text, int width) {
    std::vector<std::string> lines;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = std::min(text.find(' ', at), text.size());
        const std::string word = text.substr(at, end - at);
        const std::string longer = lines.empty() ? word : lines.back() + ' ' + word;
        if (!lines.empty() && dc.GetTextExtent(longer).cx <= width) {
            lines.back() = longer;
        } else {
            lines.push_back(word);
        }
        at = end + 1;
    }
    return lines;
}

int Widest(const owl::TDC& dc, const std::vector<std::string>& lines) {
    int width = 0;
    for (const std::string& line : lines) {
        width = std::max(width, dc.GetTextExtent(line).cx);
    }
    return width;
}

/// Selects the font, smaller where its lines are higher than this.
void SelectFontOfLine(owl::TDC& dc, owl::TFont font, int lineHeight) {
    font.height = lineHeight;
    dc.SelectFont(font);
    while (font.height > 1 && dc.GetTextExtent("Ag").cy > lineHeight) {
        --font.height;
        dc.SelectFont(font);
    }
}

} // namespace

void PaintHead(owl::TDC& dc, const HeadOutline& head, owl::TColor color) {
    dc.SelectPen({color, 1, owl::PenStyle::Solid});
    for (const auto* line : {&head.head, &head.nose, &head.leftEar, &head.rightEar}) {
        dc.Polyline(*line);
    }
}

void PaintTitle(owl::TDC& dc, const owl::TRect& area, std::span<const owl::TRect> slots,
                const std::string& title, const owl::TFont& font, owl::TColor color) {
    constexpr int kMostParts = 3;
    const int lineHeight = std::abs(font.height);
    SelectFontOfLine(dc, font, lineHeight);
    const int margin = lineHeight / 2;
    const int whole = dc.GetTextExtent(title).cx;
    for (int parts = 1; parts <= kMostParts; ++parts) {
        const std::vector<std::string> lines =
            Lines(dc, title, parts == 1 ? whole : whole / parts + 2 * lineHeight);
        const int top = area.bottom - static_cast<int>(lines.size()) * lineHeight;
        const owl::TRect place{area.left + margin, top, area.left + margin + Widest(dc, lines), area.bottom};
        const bool fits = place.right <= area.right - margin && place.top >= area.top &&
                          std::none_of(slots.begin(), slots.end(),
                                       [&](const owl::TRect& slot) { return slot.Touches(place); });
        if (fits) {
            dc.SetTextColor(color);
            dc.SetTextAlign(owl::TextAlign::Left);
            for (std::size_t i = 0; i < lines.size(); ++i) {
                dc.TextOut({place.left, top + static_cast<int>(i) * lineHeight}, lines[i]);
            }
            return;
        }
    }
}

void PaintNotice(owl::TDC& dc, const owl::TRect& area, const std::string& notice, const owl::TFont& font) {
    if (notice.empty()) {
        return;
    }
    dc.SelectFont(font);
    const int lineHeight = dc.GetTextExtent(notice).cy;
    const int margin = lineHeight;
    const std::vector<std::string> lines = Lines(dc, notice, area.Width() - 4 * margin);
    const owl::TSize plate{Widest(dc, lines) + 2 * margin,
                           static_cast<int>(lines.size()) * lineHeight + 2 * margin};
    if (plate.cx > area.Width() || plate.cy > area.Height()) {
        return;
    }
    const int left = area.left + (area.Width() - plate.cx) / 2;
    const int top = area.top + (area.Height() - plate.cy) / 2;
    const owl::TRect place{left, top, left + plate.cx, top + plate.cy};
    dc.FillRect(place, kWhite);
    dc.FrameRect(place, kPlateBorder);
    dc.SetTextColor(kQuietGrey);
    dc.SetTextAlign(owl::TextAlign::Center);
    int y = top + margin;
    for (const std::string& line : lines) {
        dc.TextOut({left + plate.cx / 2, y}, line);
        y += lineHeight;
    }
}

} // namespace orvanta::spectrum_view
