// SPDX-License-Identifier: GPL-3.0-or-later
// Which events a list shows, and in which order.
#pragma once

#include "spectra_contract/events.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orvanta::review {

/// Columns of the list.
enum class EventColumn : std::uint8_t { Clock, Seconds, Duration, Label, Class, Source };
constexpr int kEventColumns = 6;

enum class EventKind : std::uint8_t { All, Spot, State, Own };

/// What is listed: events of the kind whose label contains the text, case ignored.
struct EventFilter {
    QString text;
    EventKind kind = EventKind::All;
};

struct EventOrder {
    EventColumn column = EventColumn::Clock;
    bool descending = false;
};

/// Places of the events that are listed, from the top. Labels go by the user's alphabet; events that are
/// equal in the column stay in time order, upwards and downwards.
std::vector<std::size_t> RowsOfEvents(const std::vector<EventRecord>& events, const EventFilter& filter,
                                      const EventOrder& order);

} // namespace orvanta::review
