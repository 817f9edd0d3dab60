// SPDX-License-Identifier: GPL-3.0-or-later
// Where everything stands in the trace view.
#pragma once

#include "host/review/app/traces/trace_state.h"
#include "host/toolkit/geometry.h"

#include <optional>

namespace orvanta::review {

/// What the layout depends on besides the window's size.
struct LayoutInput {
    int fontHeight = 12; ///< of a line of text, pixels
    int nameWidth = 60;  ///< of the widest name in such a font, pixels
    int lines = 0;       ///< that are not hidden
    TraceWindow window;
    bool events = true; ///< the recording has some, whose labels need room
};

/// From top to bottom: the events' labels, the traces with their names beside them, the ruler, the overview.
/// Areas without room are empty. Where lines are many they get the room: labels, ruler and overview shrink,
/// then the names, which stand in two columns by turns where one over the other would touch.
struct TraceLayout {
    owl::TRect labels;   ///< of events
    owl::TRect names;    ///< left of the traces
    owl::TRect plot;     ///< of the traces
    owl::TRect ruler;    ///< below the traces
    owl::TRect overview; ///< of the whole recording
    int firstLine = 0;
    int lineCount = 0;  ///< on the page
    int capacity = 0;   ///< lines that a page can show
    double spacing = 0; ///< pixels from line to line
    double start = 0;
    double duration = 10;
    int nameHeight = 12; ///< of the font of names, pixels
    int nameColumns = 1;
    int labelRows = 2;
    int rowHeight = 16; ///< of a row of labels

    double XOf(double time) const;
    double TimeAt(double x) const;
    /// Middle of a line's room. \param line counted from the first line shown
    double YOf(int line) const { return plot.top + spacing * (line + 0.5); }
    /// The line in whose room the place is, counted as by YOf; nothing outside of the plot's height.
    std::optional<int> LineAt(int y) const;
    double SecondsPerPixel() const;

    bool operator==(const TraceLayout&) const = default;
};

TraceLayout LayOutTraces(const owl::TRect& client, const LayoutInput& input);

} // namespace orvanta::review
