// SPDX-License-Identifier: GPL-3.0-or-later
// The review application: one window, one recording at a time.
#pragma once

#include "host/platform/host_platform.h"
#include "host/review/app/main_window/commands.h"
#include "host/review/app/main_window/epoch_shades.h"
#include "host/review/app/main_window/open_views.h"
#include "host/review/app/main_window/recent_files.h"
#include "host/review/app/main_window/work_gui.h"

#include "spectra_contract/spectra_macro.h"

#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace orvanta::review {

class ActionListener;
class Document;
class EventAutosave;
class EventDock;
class MainWindow;
class Menus;
class ModuleBridge;
class Shell;
struct ViewToShow;

/// Opens, switches and closes recordings and does what the menus ask for. GUI thread.
class Workbench final : public Commands {
public:
    struct Setup {
        std::string settingsFile; ///< empty: settings live in memory, and no session is read or kept
        std::string dataFolder;
        ModuleBridge* bridge = nullptr;         ///< null without the module
        std::string moduleProblem;              ///< why there is none
        bool savesEvents = false;               ///< a moment after they changed, unasked
        std::optional<SpectraMacro> macro = {}; ///< of the first analysis of a recording that has none
    };

    explicit Workbench(Setup setup);
    /// Ends the views; the window must not be in the middle of work.
    ~Workbench() override;
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;

    /// Shows the window with this file, else the last one, else none.
    void Start(const std::string& file);

    Shell& Window() const { return *shell_; }
    MainWindow& Middle() const { return *middle_; }
    /// Null while no recording is open.
    Document* Current() const { return document_.get(); }

    void AskForFile() override;
    void OpenFile(const std::string& path) override;
    void CloseFile() override;
    void Quit() override;
    std::vector<std::string> RecentPaths() const override { return recent_.Paths(); }
    void ClearRecent() override;

    bool HasDocument() const override { return document_ != nullptr; }
    bool HasModule() const override { return setup_.bridge != nullptr; }
    bool CanShow(ViewKind kind) const override;
    bool IsShown(ViewKind kind) const override;
    void Show(ViewKind kind, bool show) override;
    void FillOrShowAll() override;
    bool IsFilled() const override;
    bool HasSideBar() const override;
    bool IsSideBarShown() const override;
    void ShowSideBar(bool show) override;
    void GoToPane(bool next) override;
    bool IsActive(ViewKind kind) const override;
    void Activate(ViewKind kind) override;
    bool ShowsEvents() const override;
    void ShowEvents(bool show) override;
    Arrangement GetArrangement() const override;
    void Arrange(Arrangement arrangement) override;

    bool CanAnalyse() const override;
    void NewAnalysis() override;
    void Recompute() override;

    std::string UndoText() const override;
    std::string RedoText() const override;
    void Undo() override;
    void Redo() override;
    bool HasChangedEvents() const override;
    void SaveEvents() override;
    void SaveEventsAs() override;
    void OpenEvents() override;

    bool HasActiveView() const override;
    void SavePicture() override;
    void PrintPicture() override;
    void CopyPicture() override;

    std::vector<std::string> MontageNames() const override;
    std::size_t CurrentMontage() const override;
    void ChooseMontage(std::size_t index) override;
    void EditMontages() override;
    void ChooseAverageElectrodes() override;

    void EditMacros() override;
    bool UsesRegression() const override;
    void UseRegression(bool use) override;

    std::vector<std::string> Languages() const override;
    std::string Language() const override;
    void ChooseLanguage(const std::string& language) override;

    void ShowManual() override;
    void ShowLog() override;
    void ShowAbout() override;

private:
    bool KeepsSessions() const { return !setup_.settingsFile.empty(); }
    std::string SessionPath(const std::string& recording) const;
    /// \return false after a message when the file is refused; what is open then stays
    bool Load(const std::string& path);
    /// \return false when the user wants to keep what is open
    bool MayUnload();
    void Unload();
    /// \return why it could not be stored; empty when it is stored, or nothing is to be
    std::string TryToStoreSession();
    void StoreSession();
    /// Offers the user's montages for what was opened. \return what is worth knowing about it
    std::vector<std::string> OfferMontages();
    void OpenView(ViewKind kind);
    void ShowState();
    /// Offers an analysis while there is none, unless the user does not want that.
    void ShowOffer();
    /// Shows what changed without being told.
    void Follow();
    void FollowAnalyses();
    /// Maps need an analysis: without one they would ask again and again. The user is asked here, once.
    bool HasAnalysisFor(ViewKind kind);
    /// Those that the user has not closed; before there is an analysis, the traces.
    void OpenWantedViews();
    bool IsWanted(ViewKind kind) const;
    void EventsChanged();
    void MontageChanged();
    /// Of bad channels, beside the recording; where that fails the session has them.
    void SaveMarks();
    bool MayClose();
    /// Nothing without an active view, or while something is computed.
    void TakePicture(const std::function<void(const ViewToShow&)>& take);
    void RefreshAnalyses();
    /// Gives a recording that has no analysis its first one, not computed.
    void MakeFirstAnalysis();

    Setup setup_;
    WorkGui gui_;
    platform::HostPlatform platform_;
    RecentFiles recent_;
    std::unique_ptr<Document> document_;
    std::unique_ptr<ActionListener> eventsChanged_, montageChanged_; ///< of the document
    ViewKind maps_ = ViewKind::Maps;                                 ///< the kind that is or would be shown
    AnalysisState followed_;                                         ///< what traces and maps show
    std::string montage_;                                            ///< that was told last
    bool refreshQueued_ = false;
    bool toldOfMarks_ = false;                ///< that those of the document cannot be written
    std::unique_ptr<EventAutosave> autosave_; ///< of the document's events; null where it is not wanted
    std::unique_ptr<Shell> shell_;
    MainWindow* middle_;   ///< of the shell
    EventDock* eventList_; ///< of the shell
    std::unique_ptr<OpenViews> views_;
    std::unique_ptr<Menus> menus_;
    QTimer statePoll_; ///< nobody tells when cursor, montage and analyses change
};

} // namespace orvanta::review
