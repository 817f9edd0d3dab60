// SPDX-License-Identifier: GPL-3.0-or-later
// Which window has the focus.
#pragma once

#include <QObject>

#include <vector>

namespace owl {

class TWindow;

/// Tells windows when the focus comes and goes: once for each change between windows of the application. A
/// window keeps it while one of its controls, menus, tooltips or dialogs has it, while the frame around it
/// has it in a tool bar or panel, and while another application has it. GUI thread.
class FocusTracker final : public QObject {
public:
    /// The application's; null without one.
    static FocusTracker* Instance();

    /// The window is gone, or is no longer to be told.
    void Forget(const TWindow& window);

private:
    explicit FocusTracker(QObject* application);

    void FocusChanged(QWidget* now);

    /// The window with the focus, then those around it.
    std::vector<TWindow*> chain_;
};

} // namespace owl
