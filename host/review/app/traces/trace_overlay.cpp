// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_overlay.h"

#include "host/toolkit/painter_dc.h"

#include <QPainter>

namespace orvanta::review {

TraceOverlay::TraceOverlay(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

void TraceOverlay::SetLook(const TraceLayout& layout, const TraceColors& colors, const owl::TFont& font) {
    layout_ = layout;
    colors_ = colors;
    font_ = font;
}

void TraceOverlay::SetCursor(const CursorInput& cursor) {
    if (cursor == cursor_) {
        return;
    }
    cursor_ = cursor;
    update();
}

void TraceOverlay::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    owl::PainterDC dc(painter);
    PaintCursor(dc, cursor_, layout_, colors_, font_);
}

} // namespace orvanta::review
