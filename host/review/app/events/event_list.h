// SPDX-License-Identifier: GPL-3.0-or-later
// The list of a recording's events.
#pragma once

#include "host/review/app/events/event_editor.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

namespace orvanta::review {

/// Lists all events, sorted by any column and filtered by label and kind; follows every change. Choosing an
/// event goes to its time; those of the user's are changed by a double click or the Enter key and deleted by
/// the Delete key. GUI thread.
class EventListPanel final : public QWidget {
public:
    /// \param editor must outlive this
    /// \param goTo called with the time of the event that the user chose; may be empty
    EventListPanel(QWidget* parent, EventEditor& editor, std::function<void(const XTimeInterval&)> goTo);
    ~EventListPanel() override;

    /// Selects the event, and no other, and brings it into view; goes nowhere. Nothing when it is not listed.
    void SelectEvent(std::size_t event);
    /// Places of the selected events, ascending.
    std::vector<std::size_t> SelectedEvents() const;

    /// Gives the focus to the list; the arrow keys then go from event to event.
    void FocusList();

    // Which columns are shown, their order and width, and by which the list is sorted, as a text.
    std::string Columns() const;
    /// Nothing for a text that makes no sense.
    void RestoreColumns(const std::string& columns);

    /// Asks for a new event where the traces stand.
    void AddEvent();
    /// Asks for changes of the selected event.
    void EditEvent();
    /// Deletes those of the selected events that are the user's.
    void DeleteEvents();
    /// Asks for a file and saves the listed events as a table.
    void ExportEvents();

private:
    class Follower;
    void SetUpControls();
    void AddCommands();
    void FollowSelection();
    /// After the list was made anew: what was selected alone is selected again.
    void SelectAgain(int topRow);
    void ShowState();
    /// Runs a command of the user's; what goes wrong is told.
    void Try(const std::function<void()>& command);

    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace orvanta::review
