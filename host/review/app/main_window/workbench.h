// SPDX-License-Identifier: GPL-3.0-or-later
// The review application: one window, one recording at a time.
#pragma once

#include "host/platform/host_platform.h"
#include "host/review/app/main_window/work_gui.h"

#include "spectra_contract/spectra_macro.h"

#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvanta::review {

class ActionListener;
class AnalysisRunner;
class Documents;
class EventDock;
class Follower;
class MainWindow;
class Menus;
class ModuleBridge;
class OpenViews;
class PauseWatch;
class Shell;
class ViewPictures;

/// Makes the parts of the application, and lets the window show what becomes of them. GUI thread.
class Workbench {
public:
    struct Setup {
        std::string settingsFile; ///< empty: settings live in memory, and no session is read or kept
        std::string dataFolder;
        ModuleBridge* bridge = nullptr;         ///< null without the module
        std::string moduleProblem;              ///< why there is none
        bool savesEvents = false;               ///< a moment after they changed, unasked
        bool quiet = false;                     ///< nobody looks: no progress is shown
        std::optional<SpectraMacro> macro = {}; ///< of the first analysis of a recording that has none
        std::chrono::milliseconds pause{3000};  ///< of the user, in which what changed is kept
    };

    explicit Workbench(Setup setup);
    /// Ends the views; the window must not be in the middle of work.
    ~Workbench();
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;

    /// Shows the window with this file, else the last one, else none.
    void Start(const std::string& file);
    /// Whether everything is computed and read that the window shows; what was queued last may still have to
    /// be painted.
    bool IsSettled() const;

    Shell& Window() const { return *shell_; }
    MainWindow& Middle() const { return *middle_; }
    Documents& GetDocuments() const { return *documents_; }
    OpenViews& GetViews() const { return *views_; }
    AnalysisRunner& GetAnalyses() const { return *analyses_; }

private:
    void ShowOpened(const std::vector<std::string>& remarks);
    /// Lets everything go that looks at the recording.
    void Leave();
    void ShowClosed();
    void ShowMissing(const std::string& file);
    void ShowState();
    /// Offers an analysis while there is none, unless the user does not want that.
    void ShowOffer();
    /// Shows what changed without being told.
    void Follow();
    void EventsChanged();
    bool MayClose();
    /// Puts what the windows know among the settings.
    void StoreSettings();
    /// Keeps everything as for an end that nobody sees coming.
    void KeepAll();

    Setup setup_;
    WorkGui gui_;
    platform::HostPlatform platform_;
    std::unique_ptr<Shell> shell_;
    MainWindow* middle_;   ///< of the shell
    EventDock* eventList_; ///< of the shell
    std::unique_ptr<Documents> documents_;
    std::unique_ptr<OpenViews> views_;
    std::unique_ptr<AnalysisRunner> analyses_;
    std::unique_ptr<Follower> follower_;
    std::unique_ptr<ViewPictures> pictures_;
    std::unique_ptr<Menus> menus_;
    std::unique_ptr<ActionListener> eventsChanged_; ///< of the document
    std::unique_ptr<PauseWatch> pauses_;
    QTimer statePoll_; ///< nobody tells when cursor, montage and analyses change
};

} // namespace orvanta::review
