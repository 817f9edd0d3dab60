// SPDX-License-Identifier: GPL-3.0-or-later
// Moving the page through the recording and its lines.
#include "host/review/app/traces/trace_view_impl.h"

#include <QScopeGuard>

#include <algorithm>
#include <cmath>

namespace orvanta::review {

void TraceView::Impl::Show(const TraceWindow& window) {
    TraceWindow& current = model.State().window;
    const TraceWindow wanted = KeptInside(window, model.Total());
    const bool moved = wanted.start != current.start;
    current = wanted;
    Refresh();
    if (moved) {
        ForgetMeasurement();
    }
    TraceCursorType& cursor = *recording.GetTraceCursor();
    if (moved && cursor.GetMemDataSR() > 0) {
        moving = true;
        const auto done = qScopeGuard([this] { moving = false; });
        const XTime start = XTime::FromSeconds(wanted.start);
        cursor.SetPosition(cursor.GetSample(&start, Sample::Mode::Memory, 0));
    }
}

void TraceView::Impl::FollowCursor() {
    if (moving || recording.GetTraceCursor()->GetMemDataSR() == 0) {
        return;
    }
    TraceWindow window = model.State().window;
    window.start = recording.GetTraceCursor()->GetStartRecTime()->Seconds();
    model.State().window = KeptInside(window, model.Total());
    Refresh();
    ForgetMeasurement();
}

void TraceView::Impl::MoveTo(double start) {
    TraceWindow window = model.State().window;
    window.start = start;
    Show(window);
}

void TraceView::Impl::MoveBy(double seconds) {
    MoveTo(model.State().window.start + seconds);
}

void TraceView::Impl::SetDuration(double seconds, double share) {
    Show(WithDuration(model.State().window, seconds, share, model.Total()));
}

void TraceView::Impl::ScrollLines(int lines) {
    TraceWindow& window = model.State().window;
    window.firstLine = std::max(0, window.firstLine + lines);
    Refresh();
}

void TraceView::Impl::SetLinesPerPage(int lines) {
    TraceWindow& window = model.State().window;
    const int all = static_cast<int>(model.Shown().size());
    window.lineCount = lines >= all ? 0 : std::max(1, lines);
    Refresh();
}

void TraceView::Impl::BringIntoView(std::size_t line) {
    const TraceLayout layout = Layout();
    const int at = static_cast<int>(line);
    if (at < layout.firstLine) {
        ScrollLines(at - layout.firstLine);
    } else if (at >= layout.firstLine + layout.lineCount) {
        ScrollLines(at - layout.firstLine - layout.lineCount + 1);
    }
}

void TraceView::Impl::ZoomInto(const owl::TRect& area) {
    const TraceLayout layout = Layout();
    const double begin = layout.TimeAt(std::max(area.left, layout.plot.left));
    const double end = layout.TimeAt(std::min(area.right, layout.plot.right));
    const std::optional<int> first = layout.LineAt(std::max(area.top, layout.plot.top));
    const std::optional<int> last = layout.LineAt(std::min(area.bottom, layout.plot.bottom) - 1);
    if (!(end > begin) || !first || !last) {
        return;
    }
    zooms.push_back(model.State().window);
    TraceWindow window = model.State().window;
    window.start = begin;
    window.duration = std::max(kShortestPage, end - begin);
    window.firstLine = layout.firstLine + *first;
    window.lineCount = *last - *first + 1;
    // As much larger as the lines' room.
    const double larger = static_cast<double>(layout.lineCount) / window.lineCount;
    for (const TraceGroup group : kAllGroups) {
        window.gains[group] /= larger;
    }
    Show(window);
}

void TraceView::Impl::ZoomBack() {
    if (zooms.empty()) {
        return;
    }
    const TraceWindow window = zooms.back();
    zooms.pop_back();
    Show(window);
}

} // namespace orvanta::review
