// SPDX-License-Identifier: GPL-3.0-or-later
// The views on the open recording.
#pragma once

#include "host/review/app/main_window/view_area.h"
#include "host/review/app/spectrum_look.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>

class TheChild;

namespace orvanta::review {

class Documents;
class MainWindow;
class ModuleBridge;
class TraceView;
class WorkGui;

/// Makes and ends them, and remembers which ones the user wants and where. Views must be gone before the
/// document. GUI thread.
class OpenViews {
public:
    /// \param window, documents, gui must outlive this
    /// \param bridge null without the module
    OpenViews(MainWindow& window, const Documents& documents, WorkGui& gui, ModuleBridge* bridge);

    /// False without a recording, and for views of a module that could not be loaded.
    bool CanShow(ViewKind kind) const;
    bool IsShown(ViewKind kind) const;
    /// Nothing for a view that is there or cannot be shown. Maps of the other kind are closed.
    void Open(ViewKind kind);
    /// Those that the user has not closed; before there is an analysis, the traces.
    void OpenWanted();
    /// Closes it and makes it anew, with what was chosen in it; nothing for a view that is not there.
    void Reopen(ViewKind kind);
    /// What the user wants is remembered; maps of both kinds have one place.
    void Want(ViewKind kind, bool wanted);
    /// Closes a view that the user does not want any more; when it was the active one, another gets the
    /// focus. Work is cancelled first.
    void Hide(ViewKind kind);
    void CloseAll();
    /// Grows with every view that is made.
    std::uint64_t Generation() const { return generation_; }

    /// Lets the views of analyses show the montage that is in use now.
    void FollowMontage();
    /// Computes what these views of analyses show, and lets them and their panels show it. The focus stays.
    void Refresh(std::span<const ViewKind> kinds);
    /// The same where the user has not asked for it: what fails again and again is told once, until it works
    /// or the views are closed.
    void FollowUp(std::span<const ViewKind> kinds);
    /// Lets the message bar tell of the main analysis, where the spectrum view is shown.
    void TellOfAnalysis();
    /// What was chosen in the spectrum view; nothing while it is not shown.
    std::optional<SpectrumLook> Look() const;
    /// Chooses it again. Nothing for a view that is not there.
    void Choose(const SpectrumLook& look);
    /// Null while they are not shown.
    TraceView* Traces() const;

    /// Whether it is the one that commands act on.
    bool IsActive(ViewKind kind) const;
    /// Gives the focus to a view that is shown, unless something is computed.
    void Activate(ViewKind kind);
    /// Gives the focus to the traces, which ask nothing when they get it, else to the window itself.
    void Focus();
    /// Gives the focus to the first view of analyses that is shown, else leaves it. There must be an
    /// analysis.
    void FocusAnalysis();

    void Arrange(Arrangement arrangement);
    // Arrangement and sizes among the user's settings.
    void RestoreLayout();
    void StoreLayout() const;
    /// What the user set in the views, too.
    void StoreSettings() const;

private:
    TheChild* Make(ViewKind kind);
    /// Stores the view's settings. Nothing for a view that is not there.
    void Close(ViewKind kind);
    bool IsWanted(ViewKind kind) const;

    MainWindow& window_;
    const Documents& documents_;
    WorkGui& gui_;
    ModuleBridge* bridge_;
    std::uint64_t generation_ = 0;
    std::string told_; ///< why the last refresh failed
};

} // namespace orvanta::review
