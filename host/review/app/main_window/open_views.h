// SPDX-License-Identifier: GPL-3.0-or-later
// The views on the open recording.
#pragma once

#include "host/review/app/main_window/view_area.h"

#include <functional>
#include <span>

class TheChild;

namespace orvanta::review {

class Document;
class MainWindow;
class ModuleBridge;
class TraceView;

/// Makes and ends them. Views must be gone before the document. GUI thread.
class OpenViews {
public:
    /// \param window must outlive this
    /// \param bridge null without the module
    OpenViews(MainWindow& window, ModuleBridge* bridge);

    bool CanShow(ViewKind kind) const;
    bool IsShown(ViewKind kind) const;
    /// Nothing for a view that is there or cannot be shown. Maps of the other kind are closed.
    /// \param close what the view's button asks for
    void Open(ViewKind kind, Document& document, std::function<void()> close);
    /// Stores the view's settings. Nothing for a view that is not there.
    void Close(ViewKind kind);
    void CloseAll();
    /// Lets the views of analyses show the montage that is in use now.
    void FollowMontage(const Document& document);
    /// Computes what these views of analyses show, and lets them and their panels show it. The focus stays.
    void Refresh(std::span<const ViewKind> kinds);
    /// Null while they are not shown.
    TraceView* Traces() const;
    /// Gives the focus to the traces, which ask nothing when they get it, else to the window itself.
    void Focus();
    /// Gives the focus to the first view of analyses that is shown, else leaves it. There must be an
    /// analysis.
    void FocusAnalysis();

private:
    TheChild* Make(ViewKind kind, Document& document);

    MainWindow& window_;
    ModuleBridge* bridge_;
};

} // namespace orvanta::review
