// SPDX-License-Identifier: GPL-3.0-or-later
// What the mouse reads, measures and marks.
#include "host/review/app/traces/measuring.h"
#include "host/review/app/traces/time_ruler.h"
#include "host/review/app/traces/trace_view_impl.h"

#include <algorithm>
#include <cmath>

namespace orvanta::review {

std::optional<LineInput> TraceView::Impl::LineUnder(const TraceLayout& layout, int y) {
    const std::optional<int> line = layout.LineAt(y);
    std::vector<LineInput> lines = model.Lines(layout, Millimetre());
    if (!line || static_cast<std::size_t>(*line) >= lines.size()) {
        return std::nullopt;
    }
    return lines[static_cast<std::size_t>(*line)];
}

CursorInput TraceView::Impl::CursorAt(const TraceLayout& layout, const owl::TPoint& point) {
    CursorInput cursor;
    cursor.at = cursor.from = point;
    if (!layout.plot.Contains(point)) {
        return cursor;
    }
    cursor.kind = CursorInput::Kind::Cursor;
    const double time = layout.TimeAt(point.x + 0.5);
    const std::optional<LineInput> line = LineUnder(layout, point.y);
    if (line && line->data != nullptr) {
        if (const std::optional<double> value = ValueAt(*line->data, layout, time)) {
            cursor.dot = owl::TPoint{point.x, static_cast<int>(std::lround(line->scaling.YOf(*value)))};
        }
        cursor.texts = CursorTexts(*line->channel, *line->data, layout, time);
    }
    const double step = layout.SecondsPerPixel() >= 1 ? 1 : layout.SecondsPerPixel();
    std::string place = ClockTimeText(time, step, model.StartTime());
    if (model.StartTime()) {
        place += "  (" + ElapsedText(time, step) + ")";
    }
    cursor.texts.push_back(std::move(place));
    for (const Shade& shade : shades) {
        if (time >= shade.interval.GetBeginPtr()->Seconds() && time < shade.interval.GetEndPtr()->Seconds()) {
            cursor.texts.push_back(shade.name);
        }
    }
    return cursor;
}

CursorInput TraceView::Impl::StretchTo(const TraceLayout& layout, const owl::TPoint& point) {
    CursorInput cursor;
    cursor.from = dragFrom;
    cursor.at = {std::clamp(point.x, layout.plot.left, std::max(layout.plot.left, layout.plot.right - 1)),
                 point.y};
    const double from = layout.TimeAt(cursor.from.x + 0.5);
    const double to = layout.TimeAt(cursor.at.x + 0.5);
    if (drag == Drag::Mark) {
        cursor.kind = CursorInput::Kind::Stretch;
        cursor.texts = {DurationText(std::abs(to - from))};
        return cursor;
    }
    cursor.kind = CursorInput::Kind::Measure;
    if (const std::optional<LineInput> line = LineUnder(layout, dragFrom.y); line && line->data != nullptr) {
        cursor.texts = MeasurementTexts(*line->channel, Measure(*line->data, layout, from, to));
    }
    return cursor;
}

void TraceView::Impl::ReadOut(const CursorInput& cursor) {
    overlay->SetCursor(cursor);
    std::string text;
    for (const std::string& line : cursor.texts) {
        text += (text.empty() ? "" : "   ") + line;
    }
    if (text != said) {
        Say(text);
        said = std::move(text);
    }
}

void TraceView::Impl::ReadOutPage(const TraceLayout& layout) {
    if (overlay->Cursor().kind != CursorInput::Kind::Cursor) {
        return;
    }
    const CursorInput cursor = CursorAt(layout, overlay->Cursor().at);
    if (said.empty()) { // the message bar has something else to say
        overlay->SetCursor(cursor);
    } else {
        ReadOut(cursor);
    }
}

void TraceView::Impl::ForgetMeasurement() {
    if (overlay->Cursor().kind != CursorInput::Kind::Cursor) {
        ReadOut({});
    }
}

void TraceView::Impl::Click(const TraceLayout& layout, const owl::TPoint& point) {
    if (const EventTag* tag = TagAt(tags, layout, point);
        tag != nullptr && !tag->box.IsEmpty() && tag->box.Contains(point)) {
        SelectEvent(tag->input->index);
        return;
    }
    if (!layout.plot.Contains(point) && !layout.ruler.Contains(point)) {
        SelectEvent({});
        return;
    }
    const double time = layout.TimeAt(point.x + 0.5);
    if (mode == Mode::Mark) {
        OfferSpot(time, point);
        return;
    }
    const EventTag* tag = TagAt(tags, layout, point);
    SelectEvent(tag != nullptr && tag->input->event->Class == EventClass::Spot
                    ? std::optional(tag->input->index)
                    : std::nullopt);
    const QPointer<TraceView> alive(&view);
    if (const std::optional<int> line = layout.LineAt(point.y)) {
        const std::string name = model.Channels()[model.LineOf(layout, *line)].name;
        Select(name);
        view.GW().PointAtChannel(name);
    }
    if (alive) {
        view.GW().PointAtTime(XTime::FromSeconds(time));
    }
}

} // namespace orvanta::review
