// SPDX-License-Identifier: GPL-3.0-or-later
// The views on the open recording.
#pragma once

#include "host/review/app/main_window/view_area.h"

#include <functional>

class TheChild;

namespace orvanta::review {

class Document;
class MainWindow;
class ModuleBridge;

/// Makes and ends them. Views must be gone before the document. GUI thread.
class OpenViews {
public:
    /// \param window must outlive this
    /// \param bridge null without the module
    OpenViews(MainWindow& window, ModuleBridge* bridge);

    bool CanShow(ViewKind kind) const;
    bool IsShown(ViewKind kind) const;
    /// Nothing for a view that is there or cannot be shown.
    /// \param close what the view's button asks for
    void Open(ViewKind kind, Document& document, std::function<void()> close);
    /// Stores the view's settings. Nothing for a view that is not there.
    void Close(ViewKind kind);
    void CloseAll();
    /// Computes what the views of analyses show, and lets them and their panels show it.
    void RefreshAnalyses();
    /// Gives the focus to the traces, which ask nothing when they get it, else to the window itself.
    void Focus();

private:
    TheChild* Make(ViewKind kind, Document& document);

    MainWindow& window_;
    ModuleBridge* bridge_;
};

} // namespace orvanta::review
