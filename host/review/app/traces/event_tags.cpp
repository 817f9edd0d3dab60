// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/event_tags.h"

#include <algorithm>
#include <cmath>

namespace orvanta::review {

namespace {

constexpr int kPadding = 4;
constexpr int kBetween = 3;
/// How far from a spot event's line it can be hit, pixels.
constexpr int kReach = 4;

int ClampedX(const TraceLayout& layout, double time) {
    const double x = std::clamp(layout.XOf(time), double(layout.plot.left), double(layout.plot.right));
    return static_cast<int>(std::floor(x));
}

} // namespace

std::vector<EventTag> PlaceTags(const TraceLayout& layout, std::span<const EventInput> events,
                                const std::function<int(const std::string&)>& widthOf) {
    std::vector<EventTag> tags;
    std::vector<int> rowEnds(static_cast<std::size_t>(std::max(1, layout.labelRows)), layout.plot.left);
    const double pageEnd = layout.start + layout.duration;
    for (const EventInput& input : events) {
        const double begin = input.event->Interval.GetBeginPtr()->Seconds();
        const double end = std::max(begin, input.event->Interval.GetEndPtr()->Seconds());
        const bool spot = input.event->Class == EventClass::Spot;
        if (begin >= pageEnd || end < layout.start || (!spot && end == layout.start)) {
            continue;
        }
        EventTag tag{&input, {}, ClampedX(layout, begin), 0};
        tag.end = std::max(tag.begin + 1, ClampedX(layout, end));
        const int width = widthOf(input.event->Label) + 2 * kPadding;
        const auto row =
            std::find_if(rowEnds.begin(), rowEnds.end(), [&tag](int rowEnd) { return rowEnd <= tag.begin; });
        if (row != rowEnds.end() && !layout.labels.IsEmpty() && tag.begin < layout.labels.right) {
            const int top = layout.labels.top + static_cast<int>(row - rowEnds.begin()) * layout.rowHeight;
            tag.box = {tag.begin, top, std::min(layout.labels.right, tag.begin + width),
                       top + layout.rowHeight - 1};
            *row = tag.box.right + kBetween;
        }
        tags.push_back(tag);
    }
    return tags;
}

const EventTag* TagAt(std::span<const EventTag> tags, const TraceLayout& layout, const owl::TPoint& point) {
    const EventTag* found = nullptr;
    for (const EventTag& tag : tags) {
        if (tag.box.Contains(point)) {
            return &tag;
        }
        const bool spot = tag.input->event->Class == EventClass::Spot;
        const int reach = spot ? kReach : 0;
        const bool hit =
            layout.plot.Contains(point) && point.x >= tag.begin - reach && point.x < tag.end + reach;
        if (hit && (found == nullptr || tag.end - tag.begin < found->end - found->begin)) {
            found = &tag;
        }
    }
    return found;
}

} // namespace orvanta::review
