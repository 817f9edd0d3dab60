// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/cursor_painter.h"

#include <algorithm>

namespace orvanta::review {

namespace {

constexpr int kAway = 14;
constexpr int kPadding = 5;
constexpr int kLeading = 2;
constexpr std::uint8_t kFill = 40;

void PaintBox(owl::TDC& dc, const CursorInput& cursor, const TraceLayout& layout, const TraceColors& colors,
              const owl::TFont& font) {
    owl::TSize size{0, static_cast<int>(cursor.texts.size()) * (font.height + kLeading)};
    for (const std::string& text : cursor.texts) {
        size.cx = std::max(size.cx, dc.GetTextExtent(text).cx);
    }
    const owl::TRect box =
        BoxBeside(cursor.at, {size.cx + 2 * kPadding, size.cy + 2 * kPadding}, layout.plot);
    dc.FillRect(box, colors.margin);
    dc.FrameRect(box, colors.faint);
    dc.SetTextColor(colors.text);
    int top = box.top + kPadding;
    for (const std::string& text : cursor.texts) {
        dc.TextOut({box.left + kPadding, top}, text);
        top += font.height + kLeading;
    }
}

} // namespace

owl::TRect BoxBeside(const owl::TPoint& at, const owl::TSize& size, const owl::TRect& area) {
    const int left = at.x + kAway + size.cx <= area.right ? at.x + kAway : at.x - kAway - size.cx;
    const int top = at.y + kAway + size.cy <= area.bottom ? at.y + kAway : at.y - kAway - size.cy;
    const int x = std::max(area.left, left);
    const int y = std::max(area.top, top);
    return {x, y, x + size.cx, y + size.cy};
}

void PaintCursor(owl::TDC& dc, const CursorInput& cursor, const TraceLayout& layout,
                 const TraceColors& colors, const owl::TFont& font) {
    using Kind = CursorInput::Kind;
    if (cursor.kind == Kind::None || layout.plot.IsEmpty()) {
        return;
    }
    const owl::TRect& plot = layout.plot;
    const auto [left, right] = std::minmax(cursor.from.x, cursor.at.x);
    const auto [top, bottom] = std::minmax(cursor.from.y, cursor.at.y);
    dc.SelectFont(font);
    switch (cursor.kind) {
    case Kind::Stretch: {
        const owl::TRect stretch{std::max(left, plot.left), plot.top, std::min(right, plot.right) + 1,
                                 plot.bottom};
        dc.BlendRect(stretch, colors.ownEvent, kFill);
        dc.FillRect({stretch.left, plot.top, stretch.left + 1, plot.bottom}, colors.ownEvent);
        dc.FillRect({stretch.right - 1, plot.top, stretch.right, plot.bottom}, colors.ownEvent);
        break;
    }
    case Kind::Rectangle:
        dc.BlendRect({left, top, right + 1, bottom + 1}, colors.accent, kFill);
        dc.FrameRect({left, top, right + 1, bottom + 1}, colors.accent);
        break;
    case Kind::Measure:
        dc.FillRect({cursor.from.x, plot.top, cursor.from.x + 1, plot.bottom}, colors.accent);
        dc.FillRect({cursor.at.x, plot.top, cursor.at.x + 1, plot.bottom}, colors.accent);
        dc.SelectPen({colors.accent, 1, owl::PenStyle::Dotted});
        dc.Line({left, cursor.from.y}, {right, cursor.from.y});
        dc.Line({left, cursor.at.y}, {right, cursor.at.y});
        break;
    case Kind::Cursor:
        dc.FillRect({cursor.at.x, plot.top, cursor.at.x + 1, plot.bottom},
                    Blended(colors.accent, colors.background, 0.7));
        break;
    case Kind::None:
        break;
    }
    if (cursor.dot && plot.Contains(*cursor.dot)) {
        dc.SelectPen({colors.background});
        dc.SelectBrush({colors.accent});
        dc.Ellipse(
            owl::TRect{cursor.dot->x, cursor.dot->y, cursor.dot->x + 1, cursor.dot->y + 1}.InflatedBy(3, 3));
    }
    if (!cursor.texts.empty()) {
        PaintBox(dc, cursor, layout, colors, font);
    }
}

} // namespace orvanta::review
