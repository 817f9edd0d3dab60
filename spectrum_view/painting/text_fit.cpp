// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/text_fit.h"

#include <algorithm>

namespace orvanta::spectrum_view {

namespace {

bool LiesIn(const owl::TRect& rect, const owl::TRect& area) {
    return rect.left >= area.left && rect.top >= area.top && rect.right <= area.right &&
           rect.bottom <= area.bottom;
}

bool IsFree(const owl::TRect& rect, std::span<const owl::TRect> taken) {
    return std::none_of(taken.begin(), taken.end(),
                        [&rect](const owl::TRect& other) { return rect.Touches(other); });
}

} // namespace

PlacedText Placed(std::string text, int x, int top, owl::TextAlign align, const owl::TRect& area,
                  const TextExtent& extent) {
    const owl::TSize size = extent(text);
    int left = x;
    if (align == owl::TextAlign::Center) {
        left -= size.cx / 2;
    } else if (align == owl::TextAlign::Right) {
        left -= size.cx;
    }
    left = std::max(area.left, std::min(left, area.right - size.cx));
    return {{left, top, left + size.cx, top + size.cy}, std::move(text)};
}

DigitRows DigitRowsOf(int lineHeight) {
    const int above = lineHeight / 10;
    // Whole pixels: the descender of a small font is rounded up to two.
    const int below = std::max(lineHeight / 6, std::min(2, lineHeight / 5));
    return {above, lineHeight - above - below};
}

PlacedText PlacedDigits(std::string text, int x, int top, owl::TextAlign align, const owl::TRect& area,
                        const TextExtent& extent) {
    PlacedText placed = Placed(std::move(text), x, top, align, area, extent);
    const DigitRows rows = DigitRowsOf(placed.rect.Height());
    placed.rect.bottom = top + rows.height;
    placed.above = rows.above;
    return placed;
}

bool Fits(const PlacedTexts& texts, const owl::TRect& area, int gap, std::span<const owl::TRect> taken) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const owl::TRect& rect = texts[i].rect;
        const bool free = std::none_of(
            texts.begin(), texts.begin() + static_cast<std::ptrdiff_t>(i),
            [&](const PlacedText& before) { return before.rect.Touches(rect.InflatedBy(gap, 0)); });
        if (!free || !LiesIn(rect, area) || !IsFree(rect.InflatedBy(gap, 0), taken)) {
            return false;
        }
    }
    return true;
}

void KeepFitting(const std::vector<PlacedTexts*>& groups, const owl::TRect& area, int gap,
                 std::vector<owl::TRect> taken) {
    for (PlacedTexts* group : groups) {
        if (!Fits(*group, area, gap, taken)) {
            group->clear();
        }
        for (const PlacedText& text : *group) {
            taken.push_back(text.rect);
        }
    }
}

void PaintTexts(owl::TDC& dc, const PlacedTexts& texts) {
    for (const PlacedText& text : texts) {
        dc.TextOut({text.rect.left, text.rect.top - text.above}, text.text);
    }
}

} // namespace orvanta::spectrum_view
