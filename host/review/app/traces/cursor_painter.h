// SPDX-License-Identifier: GPL-3.0-or-later
// What follows the mouse over the traces.
#pragma once

#include "host/review/app/traces/trace_colors.h"
#include "host/review/app/traces/trace_layout.h"
#include "host/toolkit/dc.h"

#include <optional>
#include <string>
#include <vector>

namespace orvanta::review {

struct CursorInput {
    enum class Kind { None, Cursor, Stretch, Rectangle, Measure };

    Kind kind = Kind::None;
    owl::TPoint from;               ///< where the drag began
    owl::TPoint at;                 ///< where the mouse is
    std::optional<owl::TPoint> dot; ///< of the value that is read
    std::vector<std::string> texts; ///< in the box beside the mouse, one a line

    bool operator==(const CursorInput&) const = default;
};

void PaintCursor(owl::TDC& dc, const CursorInput& cursor, const TraceLayout& layout,
                 const TraceColors& colors, const owl::TFont& font);

/// Beside a place, inside the area, away from the side it is near to.
owl::TRect BoxBeside(const owl::TPoint& at, const owl::TSize& size, const owl::TRect& area);

} // namespace orvanta::review
