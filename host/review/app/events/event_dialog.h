// SPDX-License-Identifier: GPL-3.0-or-later
// One event to be made or changed by the user.
#pragma once

#include "host/review/app/events/event_editor.h"
#include "host/toolkit/form.h"

#include <cstddef>
#include <memory>
#include <optional>

namespace orvanta::review {

/// Label (those of all events are offered), class, begin and duration in seconds. It closes with OK only for
/// an event that the editor takes, and says what is wrong until then.
class EventDialog final : public owl::TForm {
public:
    enum class Purpose { Add, Change };

    /// \param event what is shown first \param editor must outlive this
    EventDialog(HWND parent, const EventEditor& editor, const EventRecord& event, Purpose purpose);
    ~EventDialog() override;

    /// The event as it is typed; what is no number counts as 0.
    EventRecord GetEvent() const;

private:
    /// Shows what the typed event lacks, and its time on the clock.
    void Check();

    struct Impl;
    std::unique_ptr<Impl> impl_;
};

/// Opens the dialog for a new event. \return its place; none when the user cancelled
std::optional<std::size_t> AddWithDialog(HWND parent, EventEditor& editor, const EventRecord& suggested);
/// Opens the dialog for an event of the user's; says so when it is in the recording itself. \return its place
/// now; none when nothing was changed
std::optional<std::size_t> ChangeWithDialog(HWND parent, EventEditor& editor, std::size_t event);

} // namespace orvanta::review
