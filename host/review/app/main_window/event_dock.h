// SPDX-License-Identifier: GPL-3.0-or-later
// The list of events at the edge of the window.
#pragma once

#include <QDockWidget>

#include <functional>

class GenericPlatform;
class XTimeInterval;

namespace orvanta::review {

class EventEditor;
class EventListPanel;

/// Can be moved to another edge, out of the window, and closed. It is there only while a recording is open,
/// when the user wants it. GUI thread.
class EventDock final : public QDockWidget {
public:
    /// \param platform must outlive this
    EventDock(QWidget* parent, GenericPlatform& platform);

    /// Lists these events from now on. \param goTo called with the time of an event that the user chose
    void Open(EventEditor& events, std::function<void(const XTimeInterval&)> goTo);
    /// The events go.
    void Close();

    /// Puts what the user arranged among the settings.
    void Store();

    bool IsWanted() const;
    /// Shows or hides the list, and remembers it. A list that comes up gets the focus.
    void Want(bool wanted);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    GenericPlatform& platform_;
    EventListPanel* panel_ = nullptr; ///< of the dock; null without a recording
};

} // namespace orvanta::review
