// SPDX-License-Identifier: GPL-3.0-or-later
// Paints a page of traces.
#pragma once

#include "host/review/app/traces/event_tags.h"

namespace orvanta::review {

/// Everything but the overview.
/// \param tags of the page's events
void PaintPage(owl::TDC& dc, const PageInput& page, std::span<const EventTag> tags);

/// The strip of the whole recording with its events and the frame of the page.
void PaintOverview(owl::TDC& dc, const PageInput& page, const OverviewInput& overview);

/// Colour of an event's band, line and label.
owl::TColor ColorOf(const EventInput& event, const TraceColors& colors);

} // namespace orvanta::review
