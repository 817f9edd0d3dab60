// SPDX-License-Identifier: GPL-3.0-or-later
// What the user can ask the application for, in its menus and on its pages.
#pragma once

#include "host/review/app/main_window/view_area.h"

#include <string>
#include <vector>

namespace orvanta::review {

/// Failures are shown to the user, not thrown. GUI thread.
class Commands {
public:
    virtual ~Commands() = default;

    virtual void AskForFile() = 0;
    /// Also while a computation runs: it is cancelled first.
    virtual void OpenFile(const std::string& path) = 0;
    virtual void CloseFile() = 0;
    virtual void Quit() = 0;
    virtual std::vector<std::string> RecentPaths() const = 0;
    virtual void ClearRecent() = 0;

    virtual bool HasDocument() const = 0;
    virtual bool HasModule() const = 0;
    /// False, among others, for views of a module that could not be loaded.
    virtual bool CanShow(ViewKind kind) const = 0;
    virtual bool IsShown(ViewKind kind) const = 0;
    virtual void Show(ViewKind kind, bool show) = 0;
    /// The active view alone, or all again.
    virtual void FillOrShowAll() = 0;
    virtual bool IsFilled() const = 0;
    /// Of the view that has one.
    virtual bool HasSideBar() const = 0;
    virtual bool IsSideBarShown() const = 0;
    virtual void ShowSideBar(bool show) = 0;
    /// Gives the focus to the next or the previous pane of the window.
    virtual void GoToPane(bool next) = 0;
    /// Whether it is the one that commands act on.
    virtual bool IsActive(ViewKind kind) const = 0;
    /// Gives the focus to a view that is shown.
    virtual void Activate(ViewKind kind) = 0;
    /// The list of the recording's events.
    virtual bool ShowsEvents() const = 0;
    virtual void ShowEvents(bool show) = 0;
    virtual Arrangement GetArrangement() const = 0;
    virtual void Arrange(Arrangement arrangement) = 0;

    virtual bool CanAnalyse() const = 0;
    virtual void NewAnalysis() = 0;
    virtual void Recompute() = 0;

    /// What would be undone or done again, for a menu; empty when there is nothing.
    virtual std::string UndoText() const = 0;
    virtual std::string RedoText() const = 0;
    virtual void Undo() = 0;
    virtual void Redo() = 0;
    virtual bool HasChangedEvents() const = 0;
    virtual void SaveEvents() = 0;
    /// To another table, where they are kept from then on.
    virtual void SaveEventsAs() = 0;
    /// Takes the user's events from another table, which they are kept in from then on.
    virtual void OpenEvents() = 0;

    // Pictures of the active view.
    virtual bool HasActiveView() const = 0;
    virtual void SavePicture() = 0;
    virtual void PrintPicture() = 0;
    virtual void CopyPicture() = 0;

    virtual std::vector<std::string> MontageNames() const = 0;
    virtual std::size_t CurrentMontage() const = 0;
    virtual void ChooseMontage(std::size_t index) = 0;
    /// The user's own.
    virtual void EditMontages() = 0;
    /// Needs the module and a recording.
    virtual void ChooseAverageElectrodes() = 0;

    virtual void EditMacros() = 0;
    virtual bool UsesRegression() const = 0;
    virtual void UseRegression(bool use) = 0;

    /// Languages that there are texts in.
    virtual std::vector<std::string> Languages() const = 0;
    /// From the next start on; empty for the system's.
    virtual std::string Language() const = 0;
    virtual void ChooseLanguage(const std::string& language) = 0;

    virtual void ShowManual() = 0;
    virtual void ShowLog() = 0;
    virtual void ShowAbout() = 0;
};

} // namespace orvanta::review
