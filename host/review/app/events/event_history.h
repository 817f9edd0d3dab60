// SPDX-License-Identifier: GPL-3.0-or-later
// Changes of a recording's events that can be taken back.
#pragma once

#include "spectra_contract/events.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace orvanta::review {

/// One change: what went out, by its places before the change, and what came in, by its places after it.
/// Backwards it is the same with both exchanged.
struct EventChange {
    std::string text; ///< for a menu: "Add Artifact"
    std::vector<PlacedEvent> removed;
    std::vector<PlacedEvent> inserted;
};

/// The changes made and taken back. It keeps the changed events alone, so that its size goes with the changes
/// and not with the events there are. It is up to date by the time the events tell of a change.
class EventHistory {
public:
    explicit EventHistory(EventsManager& events) : events_(events) {}

    /// Makes a change; those that were taken back are lost.
    void Make(EventChange change);
    /// Null when there is nothing to take back.
    const EventChange* Last() const;
    /// Null when there is nothing to make again.
    const EventChange* Next() const;
    void Undo();
    void Redo();

    /// The events are what the file holds.
    void MarkSaved() { saved_ = done_; }
    bool IsSaved() const { return saved_ == done_; }
    /// Forgets all changes; the events are what the file holds.
    void Clear();

private:
    EventsManager& events_;
    std::vector<EventChange> changes_;
    std::size_t done_ = 0;
    std::optional<std::size_t> saved_ = 0; ///< none when the saved state cannot be reached any more
};

} // namespace orvanta::review
