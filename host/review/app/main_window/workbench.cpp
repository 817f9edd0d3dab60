// SPDX-License-Identifier: GPL-3.0-or-later
// How recordings are opened, switched and closed.
#include "host/review/app/main_window/workbench.h"

#include "host/chart_view/the_child.h"
#include "host/review/app/events/event_autosave.h"
#include "host/review/app/events/event_editor.h"
#include "host/review/app/main_window/action_listener.h"
#include "host/review/app/main_window/document.h"
#include "host/review/app/main_window/event_dock.h"
#include "host/review/app/main_window/event_saving.h"
#include "host/review/app/main_window/host_text.h"
#include "host/review/app/main_window/kept_marks.h"
#include "host/review/app/main_window/main_window.h"
#include "host/review/app/main_window/menus.h"
#include "host/review/app/main_window/notice_strip.h"
#include "host/review/app/main_window/session.h"
#include "host/review/app/main_window/shell.h"
#include "host/review/app/main_window/side_bar.h"
#include "host/review/app/main_window/starter_maps.h"
#include "host/review/app/main_window/status_fields.h"
#include "host/review/app/main_window/text_setting.h"
#include "host/review/app/main_window/welcome_page.h"
#include "host/review/app/refusal_text.h"
#include "host/toolkit/event_guard.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/modal_gateway.h"
#include "spectra_contract/file_path.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spect_globals.h"
#include "spectra_contract/spectra_mgr.h"

#include <QApplication>
#include <QMenuBar>

namespace orvanta::review {

namespace {

constexpr const char* kLastFile = "LastFile";
constexpr const char* kFolder = "Folder";
constexpr const char* kLayout = "ViewLayout";
constexpr const char* kHidden = "HiddenViews";
constexpr const char* kOffers = "OffersAnalysis";
constexpr const char* kStatMode = "StatMode";
constexpr int kStatePoll = 200; // ms

QStringList Lines(const std::vector<std::string>& texts) {
    QStringList lines;
    for (const std::string& text : texts) {
        lines << QString::fromStdString(text);
    }
    return lines;
}

/// Both kinds of maps have one place.
unsigned Bit(ViewKind kind) {
    return 1U << static_cast<unsigned>(IsMaps(kind) ? ViewKind::Maps : kind);
}

} // namespace

Workbench::Workbench(Setup setup)
    : setup_(std::move(setup)), platform_(gui_, setup_.settingsFile, setup_.dataFolder), recent_(platform_) {
    SPECT::GetGlobals().LoadInfo(&platform_);
    InstallStarterMaps(platform_);
    shell_ = std::make_unique<Shell>(Shell::Answers{
        [this] { return MayClose(); },
        [this](const std::string& path) { OpenFile(path); },
    });
    middle_ = new MainWindow({&platform_, &shell_->GetSideBar(),
                              [this](const std::string& text) { shell_->ShowText(text); },
                              [this](TheChild* child) {
                                  if (menus_ != nullptr) {
                                      menus_->ShowMenuOf(child);
                                  }
                              },
                              [this](const XTime& time) {
                                  if (TraceView* traces = views_->Traces()) {
                                      traces->GoTo(time);
                                  }
                              },
                              [this](const std::string& name) {
                                  if (TraceView* traces = views_->Traces()) {
                                      traces->ShowChannel(name);
                                  }
                              }});
    shell_->setCentralWidget(middle_);
    middle_->SetWelcome(*new WelcomePage(*this, middle_));
    views_ = std::make_unique<OpenViews>(*middle_, setup_.bridge);
    menus_ = std::make_unique<Menus>(*shell_->menuBar(), *this);
    eventList_ = new EventDock(shell_.get(), platform_);
    shell_->addDockWidget(Qt::RightDockWidgetArea, eventList_);
    middle_->Views().RestoreLayout(ReadText(platform_, kLayout));
    shell_->Restore(platform_);
    eventList_->hide(); // until there are events
    middle_->ShowWelcome(true);
    if (!setup_.moduleProblem.empty()) {
        middle_->Problem().Tell(HostQText("noModule", "Only traces can be shown"),
                                {QString::fromStdString(setup_.moduleProblem)});
    }
    NoticeStrip& offer = middle_->Offer();
    offer.Tell({}, {HostQText("offerAnalysis", "Spectra and maps appear here once there is an analysis.")});
    offer.AddAction("offerNew", HostQText("analysisNew", "&New Analysis..."), [this] { NewAnalysis(); });
    offer.WhenClosed(HostQText("offerClose", "Do not offer this again"),
                     [this] { platform_.GetUser()->PutInt(kHostSection, kOffers, 0); });
    ShowOffer();
    QObject::connect(&statePoll_, &QTimer::timeout, &statePoll_,
                     [this] { owl::RunGuarded([this] { Follow(); }); });
    statePoll_.start(kStatePoll);
}

Workbench::~Workbench() {
    statePoll_.stop();
    TryToStoreSession(); // a failure was told when the window was closed
    views_->CloseAll();
    eventList_->Close();
    SPECT::GetGlobals().SaveInfo(&platform_);
    menus_.reset();
    views_.reset();
    shell_.reset(); // before what its views look at
}

void Workbench::Start(const std::string& file) {
    shell_->show();
    shell_->activateWindow();
    const std::string first = file.empty() && KeepsSessions() ? ReadText(platform_, kLastFile) : file;
    if (!first.empty()) {
        OpenFile(first);
    }
}

void Workbench::AskForFile() {
    const std::string names = HostText("openRecordings", "Recordings");
    const std::optional<std::string> chosen = owl::CurrentModalGateway().AskFileToOpen(
        HWND(shell_.get()),
        {.title = HostText("openTitle", "Open a Recording"),
         .filter = names +
                   "|*.edf *.bdf *.rec *.vhdr|EDF, EDF+|*.edf *.rec|BDF, BDF+|*.bdf|BrainVision|*.vhdr|" +
                   HostText("openAll", "All files") + "|*",
         .extension = {},
         .folder = ReadText(platform_, kFolder),
         .name = {}});
    if (chosen) {
        OpenFile(*chosen);
    }
}

void Workbench::OpenFile(const std::string& path) {
    gui_.WhenIdle([this, path] {
        if (!Load(path)) {
            return;
        }
        recent_.Add(document_->Path());
        WriteText(platform_, kLastFile, document_->Path());
        WriteText(platform_, kFolder, FilePath(document_->Path()).GetFolder());
    });
}

bool Workbench::Load(const std::string& path) {
    std::unique_ptr<Document> opened;
    try {
        opened = std::make_unique<Document>(path, gui_);
    } catch (const std::exception& error) {
        gui_.ShowError(RefusalText(error, PModule::Named("Orvanta")));
        return false;
    }
    if (!MayUnload()) {
        return false;
    }
    Unload();
    document_ = std::move(opened);
    toldOfMarks_ = false;
    std::vector<std::string> remarks = OfferMontages();
    eventsChanged_ = std::make_unique<ActionListener>("Workbench", document_->Events().GetChangedFlag(),
                                                      [this] { EventsChanged(); });
    montageChanged_ = std::make_unique<ActionListener>("Workbench", document_->Recording().GetMontageFlag(),
                                                       [this] { MontageChanged(); });
    if (setup_.savesEvents) {
        autosave_ = std::make_unique<EventAutosave>(document_->Events());
    }
    document_->Analyses().SetStatMode(platform_.GetUser()->GetInt(kHostSection, kStatMode, 0));
    maps_ = ViewKind::Maps;
    if (KeepsSessions()) {
        if (const std::optional<Session> session = LoadSession(SessionPath(document_->Path()))) {
            const std::vector<std::string> more = Restore(*session, *document_, gui_);
            remarks.insert(remarks.end(), more.begin(), more.end());
            maps_ = session->heads ? ViewKind::Heads : ViewKind::Maps;
            toldOfMarks_ = !session->marks.empty();
        }
    }
    MakeFirstAnalysis();
    montage_ = document_->Recording().GetTraceInfo()->GetMtg().GetName();
    middle_->Repairs().Tell(HostQText("repairs", "About this recording"), Lines(remarks));
    middle_->ShowWelcome(false);
    eventList_->Open(document_->Events(), [this](const XTimeInterval& interval) {
        middle_->PointAtTime(*interval.GetBeginPtr());
    });
    OpenWantedViews();
    views_->Focus();
    Follow();
    // Once everything can be seen.
    QMetaObject::invokeMethod(
        &statePoll_,
        [this] {
            SaveMarks();
            RefreshAnalyses();
        },
        Qt::QueuedConnection);
    return true;
}

void Workbench::MakeFirstAnalysis() {
    SpectraMgr& analyses = document_->Analyses();
    if (setup_.macro && CanAnalyse() && analyses.Size() == 0) {
        analyses.push_back(new SpectMacroResult(*setup_.macro, &document_->Recording(), &gui_));
        analyses.SetMain(*analyses.begin());
    }
}

void Workbench::RefreshAnalyses() {
    if (document_ != nullptr && document_->Analyses().GetMain() != nullptr && !gui_.IsBusy()) {
        views_->Refresh(kAnalysisViews);
    }
}

void Workbench::CloseFile() {
    gui_.WhenIdle([this] {
        if (document_ != nullptr && MayUnload()) {
            WriteText(platform_, kLastFile, {});
            Unload();
        }
    });
}

bool Workbench::MayUnload() {
    return document_ == nullptr || AskToSaveEvents(HWND(shell_.get()), document_->Events());
}

void Workbench::Unload() {
    StoreSession();
    if (document_ != nullptr) {
        WriteText(platform_, kLayout, middle_->Views().Layout());
    }
    views_->CloseAll();
    eventList_->Close();
    eventsChanged_.reset();
    autosave_.reset();
    montageChanged_.reset();
    document_.reset();
    middle_->Repairs().Tell({}, {});
    middle_->ShowWelcome(true);
    shell_->ShowText({});
    ShowState();
}

std::string Workbench::SessionPath(const std::string& recording) const {
    return SessionFile(platform_.GetAppFolder("sessions"), recording);
}

std::string Workbench::TryToStoreSession() {
    if (document_ == nullptr || !KeepsSessions()) {
        return {};
    }
    try {
        Session session = SessionOf(*document_);
        session.heads = maps_ == ViewKind::Heads;
        SaveSession(SessionPath(document_->Path()), session);
        return {};
    } catch (const std::exception& error) {
        return error.what();
    }
}

void Workbench::StoreSession() {
    if (const std::string problem = TryToStoreSession(); !problem.empty()) {
        gui_.ShowError(problem);
    }
}

bool Workbench::IsWanted(ViewKind kind) const {
    const auto hidden = static_cast<unsigned>(platform_.GetUser()->GetInt(kHostSection, kHidden, 0));
    return (hidden & Bit(kind)) == 0 && (!IsMaps(kind) || kind == maps_);
}

bool Workbench::HasAnalysisFor(ViewKind kind) {
    const SpectraMgr& analyses = document_->Analyses();
    if (IsMaps(kind) && analyses.GetMain() == nullptr) {
        NewAnalysis();
    }
    return !IsMaps(kind) || analyses.GetMain() != nullptr;
}

void Workbench::OpenWantedViews() {
    const bool analysed = document_->Analyses().GetMain() != nullptr;
    for (const ViewKind kind : kViewKinds) {
        if (kind == ViewKind::Traces ? IsWanted(kind) || !analysed : IsWanted(kind) && analysed) {
            OpenView(kind);
        }
    }
}

void Workbench::OpenView(ViewKind kind) {
    if (!IsShown(kind)) {
        views_->Open(kind, *document_, [this, kind] { Show(kind, false); });
        followed_ = {};
    }
}

bool Workbench::CanShow(ViewKind kind) const {
    return document_ != nullptr && views_->CanShow(kind);
}

bool Workbench::IsShown(ViewKind kind) const {
    return views_->IsShown(kind);
}

void Workbench::Show(ViewKind kind, bool show) {
    gui_.WhenIdle([this, kind, show] {
        if (!show) {
            views_->Close(kind);
        } else if (CanShow(kind)) {
            maps_ = IsMaps(kind) ? kind : maps_;
            if (HasAnalysisFor(kind)) {
                OpenView(kind);
            }
        }
        auto hidden = static_cast<unsigned>(platform_.GetUser()->GetInt(kHostSection, kHidden, 0));
        hidden = show ? hidden & ~Bit(kind) : hidden | Bit(kind);
        platform_.GetUser()->PutInt(kHostSection, kHidden, static_cast<int>(hidden));
    });
}

bool Workbench::IsActive(ViewKind kind) const {
    return IsShown(kind) && middle_->GetActiveChild() == middle_->Views().ViewOf(kind);
}

void Workbench::Activate(ViewKind kind) {
    if (IsShown(kind) && !gui_.IsBusy()) {
        ViewArea& views = middle_->Views();
        TheChild& view = *views.ViewOf(kind);
        if (views.IsFilled() && !view.isVisible()) {
            views.ShowAll();
        }
        view.SetFocus();
    }
}

bool Workbench::ShowsEvents() const {
    return document_ != nullptr && eventList_->IsWanted();
}

void Workbench::ShowEvents(bool show) {
    if (document_ != nullptr) {
        eventList_->Want(show);
        if (!show) {
            views_->Focus();
        }
    }
}

Arrangement Workbench::GetArrangement() const {
    return middle_->Views().GetArrangement();
}

void Workbench::Arrange(Arrangement arrangement) {
    middle_->Views().Arrange(arrangement);
    WriteText(platform_, kLayout, middle_->Views().Layout());
}

bool Workbench::UsesRegression() const {
    constexpr int kRegression = 2;
    return platform_.GetUser()->GetInt(kHostSection, kStatMode, 0) == kRegression;
}

void Workbench::UseRegression(bool use) {
    constexpr int kRegression = 2;
    platform_.GetUser()->PutInt(kHostSection, kStatMode, use ? kRegression : 0);
    gui_.WhenIdle([this, mode = use ? kRegression : 0] {
        if (document_ == nullptr) {
            return;
        }
        document_->Analyses().SetStatMode(mode);
        // The view looks at it when it makes its side bar.
        if (IsShown(ViewKind::Spectrum)) {
            views_->Close(ViewKind::Spectrum);
            OpenView(ViewKind::Spectrum);
        }
    });
}

void Workbench::ShowState() {
    shell_->ShowTitle(document_ != nullptr ? QString::fromStdString(document_->Recording().GetFileNameText())
                                           : QString(),
                      HasChangedEvents());
    const StatusFields fields = document_ != nullptr ? StatusOf(document_->Recording()) : StatusFields();
    menus_->Update();
    ShowOffer();
    shell_->ShowFields(fields.recording, fields.montage, fields.place);
}

void Workbench::ShowOffer() {
    const bool wanted = platform_.GetUser()->GetInt(kHostSection, kOffers, 1) != 0;
    middle_->Offer().setVisible(wanted && CanAnalyse() && document_->Analyses().GetMain() == nullptr);
}

void Workbench::Follow() {
    ShowState();
    if (document_ != nullptr && !gui_.IsBusy() &&
        montage_ != document_->Recording().GetTraceInfo()->GetMtg().GetName()) {
        document_->Recording().GetMontageFlag().Set(); // a view changed it without telling
    }
    FollowAnalyses();
}

void Workbench::FollowAnalyses() {
    if (document_ == nullptr || gui_.IsBusy() || QApplication::activeModalWidget() != nullptr) {
        return;
    }
    const QPalette palette = middle_->palette();
    const AnalysisState state = AnalysisStateOf(document_->Analyses(), palette);
    if (state == followed_) {
        return;
    }
    if (document_->Analyses().GetMain() != nullptr) {
        OpenWantedViews();
    }
    followed_ = state;
    if (TraceView* traces = views_->Traces()) {
        traces->SetShades(EpochShades(document_->Analyses(), document_->Recording(), palette));
    }
    views_->Refresh(kMapsViews);
    TryToStoreSession(); // for a sudden end; an ordinary one tells of a failure
}

void Workbench::EventsChanged() {
    ShowState();
    const SpectMacroResult* main = document_->Analyses().GetMain();
    if (main != nullptr && main->IsComputed() &&
        main->IsRecomputingNeeded(document_->Recording().GetTraceInfo()->GetMtg(), {}, 0)) {
        shell_->ShowText(HostText("eventsStale", "The events have changed since the analysis was computed. "
                                                 "Choose Recompute to take them in."));
    }
}

void Workbench::MontageChanged() {
    montage_ = document_->Recording().GetTraceInfo()->GetMtg().GetName();
    views_->FollowMontage(*document_);
    if (refreshQueued_) {
        return;
    }
    refreshQueued_ = true; // several changes, one computation
    QMetaObject::invokeMethod(
        &statePoll_,
        [this] {
            refreshQueued_ = false;
            SaveMarks();
            RefreshAnalyses();
        },
        Qt::QueuedConnection);
}

void Workbench::SaveMarks() {
    if (document_ == nullptr || !setup_.savesEvents) {
        return;
    }
    try {
        document_->Marks().Save();
    } catch (const std::runtime_error& error) {
        if (!std::exchange(toldOfMarks_, true)) {
            gui_.ShowWarning(HostQText("marksFailed",
                                       "The marks of bad channels cannot be kept beside the recording, "
                                       "where other programs would find them: %1\n\nThey are kept in "
                                       "the settings of this user and come back when the recording is "
                                       "opened from the same place.")
                                 .arg(error.what())
                                 .toStdString());
        }
    }
}

bool Workbench::MayClose() {
    if (gui_.IsBusy()) {
        gui_.WhenIdle([this] { shell_->close(); });
        return false;
    }
    if (!MayUnload()) {
        return false;
    }
    StoreSession();
    if (document_ != nullptr) {
        WriteText(platform_, kLayout, middle_->Views().Layout());
    }
    shell_->Store(platform_);
    eventList_->Store();
    platform_.SaveSettings();
    return true;
}

void Workbench::Quit() {
    shell_->close();
}

void Workbench::ClearRecent() {
    recent_.Clear();
}

} // namespace orvanta::review
