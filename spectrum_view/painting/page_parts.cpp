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

} // namespace

void PaintHead(owl::TDC& dc, const HeadOutline& head, owl::TColor color) {
    dc.SelectPen({color, 1, owl::PenStyle::Solid});
    for (const auto* line : {&head.head, &head.nose, &head.leftEar, &head.rightEar}) {
        dc.Polyline(*line);
    }
}

owl::TRect TitleStrip(const owl::TRect& area, int fontHeight) {
    return {area.left, area.bottom - std::abs(fontHeight), area.right, area.bottom};
}

void PaintTitle(owl::TDC& dc, const owl::TRect& strip, std::span<const owl::TRect> slots,
                const std::string& title, const owl::TFont& font, owl::TColor color) {
    dc.SelectFont(font);
    const owl::TSize size = dc.GetTextExtent(title);
    const int margin = strip.Height() / 2;
    const owl::TRect place{strip.left + margin, strip.top, strip.left + margin + size.cx, strip.bottom};
    if (title.empty() || place.right > strip.right - margin ||
        std::any_of(slots.begin(), slots.end(),
                    [&](const owl::TRect& slot) { return slot.Touches(place); })) {
        return;
    }
    dc.SetTextColor(color);
    dc.SetTextAlign(owl::TextAlign::Left);
    dc.TextOut({place.left, place.top}, title);
}

void PaintNotice(owl::TDC& dc, const owl::TRect& area, const std::string& notice, const owl::TFont& font) {
    if (notice.empty()) {
        return;
    }
    dc.SelectFont(font);
    const int lineHeight = dc.GetTextExtent(notice).cy;
    const int margin = lineHeight;
    const std::vector<std::string> lines = Lines(dc, notice, area.Width() - 4 * margin);
    int width = 0;
    for (const std::string& line : lines) {
        width = std::max(width, dc.GetTextExtent(line).cx);
    }
    const owl::TSize plate{width + 2 * margin, static_cast<int>(lines.size()) * lineHeight + 2 * margin};
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
