// SPDX-License-Identifier: GPL-3.0-or-later
// Events that are on the disk soon after they were changed.
#pragma once

#include "host/review/app/events/event_editor.h"

#include <QTimer>

#include <chrono>

namespace orvanta::review {

/// Saves the events when they have not changed for a moment, so that a crash costs the last change at most.
/// It asks nothing: a save that fails is told to the log once, the events stay changed in memory, and it is
/// tried again after the next change. Ends without saving, for who closes may mean to discard. GUI thread.
class EventAutosave final : private FlagListener {
public:
    static constexpr std::chrono::milliseconds kDelay{1000};

    /// \param editor must outlive this
    explicit EventAutosave(EventEditor& editor, std::chrono::milliseconds delay = kDelay);

private:
    void PerformAction() override;
    void Save();

    EventEditor& editor_;
    QTimer timer_;
    std::string told_; ///< the failure that the log has already
};

} // namespace orvanta::review
