// SPDX-License-Identifier: GPL-3.0-or-later
// The layer above the traces that follows the mouse, so that they need not be drawn again.
#pragma once

#include "host/review/app/traces/cursor_painter.h"

#include <QWidget>

namespace orvanta::review {

/// Lets the mouse through. GUI thread.
class TraceOverlay final : public QWidget {
public:
    explicit TraceOverlay(QWidget* parent);

    /// What it is painted for.
    void SetLook(const TraceLayout& layout, const TraceColors& colors, const owl::TFont& font);
    void SetCursor(const CursorInput& cursor);
    const CursorInput& Cursor() const { return cursor_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TraceLayout layout_;
    TraceColors colors_;
    owl::TFont font_;
    CursorInput cursor_;
};

} // namespace orvanta::review
