// SPDX-License-Identifier: GPL-3.0-or-later
// Labels of events above the traces.
#pragma once

#include "host/review/app/traces/trace_picture.h"

#include <functional>
#include <span>

namespace orvanta::review {

/// An event's label in its place.
struct EventTag {
    const EventInput* input = nullptr;
    owl::TRect box; ///< of the label; empty when there is no room for it
    int begin = 0;  ///< of the event itself, kept on the page
    int end = 0;    ///< begin + 1 at least
};

/// Labels from left to right in rows, none over another; those that find no room in any row have no box.
/// \param events in time order; those that are not on the page are left out
/// \param widthOf width of a text, pixels
std::vector<EventTag> PlaceTags(const TraceLayout& layout, std::span<const EventInput> events,
                                const std::function<int(const std::string&)>& widthOf);

/// The event at a place: by its label, or a spot event's line, or the band of a state event.
/// \return null when there is none; of several the shortest
const EventTag* TagAt(std::span<const EventTag> tags, const TraceLayout& layout, const owl::TPoint& point);

} // namespace orvanta::review
