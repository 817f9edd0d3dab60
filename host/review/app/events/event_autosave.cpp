// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/events/event_autosave.h"

#include <exception>

namespace orvanta::review {

EventAutosave::EventAutosave(EventEditor& editor, std::chrono::milliseconds delay)
    : FlagListener("event autosave", editor.GetChangedFlag()), editor_(editor) {
    timer_.setSingleShot(true);
    timer_.setInterval(delay);
    QObject::connect(&timer_, &QTimer::timeout, [this] { Save(); });
}

void EventAutosave::PerformAction() {
    timer_.start(); // a change while it waits makes it wait anew
}

void EventAutosave::Save() {
    // A recording without a file has no table: its events are saved where the user says, when he says.
    if (!editor_.IsChanged() || editor_.GetFile().empty()) {
        return;
    }
    try {
        editor_.Save();
        told_.clear();
    } catch (const std::exception& error) {
        if (told_ != error.what()) {
            told_ = error.what();
            qInfo("%s", error.what());
        }
    }
}

} // namespace orvanta::review
