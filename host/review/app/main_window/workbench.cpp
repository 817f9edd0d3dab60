// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/workbench.h"

#include "host/review/app/action_listener.h"
#include "host/review/app/events/event_editor.h"
#include "host/review/app/main_window/analysis_runner.h"
#include "host/review/app/main_window/document.h"
#include "host/review/app/main_window/documents.h"
#include "host/review/app/main_window/event_dock.h"
#include "host/review/app/main_window/follower.h"
#include "host/review/app/main_window/host_text.h"
#include "host/review/app/main_window/main_window.h"
#include "host/review/app/main_window/menus.h"
#include "host/review/app/main_window/notice_strip.h"
#include "host/review/app/main_window/open_views.h"
#include "host/review/app/main_window/pause_watch.h"
#include "host/review/app/main_window/shell.h"
#include "host/review/app/main_window/side_bar.h"
#include "host/review/app/main_window/starter_maps.h"
#include "host/review/app/main_window/status_fields.h"
#include "host/review/app/main_window/text_setting.h"
#include "host/review/app/main_window/view_pictures.h"
#include "host/review/app/main_window/welcome_page.h"
#include "host/review/app/traces/trace_view.h"
#include "host/toolkit/event_guard.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spect_globals.h"
#include "spectra_contract/spectra_mgr.h"

#include <QLoggingCategory>
#include <QMenuBar>

namespace orvanta::review {

namespace {

constexpr const char* kOffers = "OffersAnalysis";
constexpr int kStatePoll = 200; // ms

QStringList Lines(const std::vector<std::string>& texts) {
    QStringList lines;
    for (const std::string& text : texts) {
        lines << QString::fromStdString(text);
    }
    return lines;
}

/// What a spectrum view would measure for this user; maps alone measure the same.
SPECT::Entity::Type StoredEntity(const UserType& user) {
    return static_cast<SPECT::Entity::Type>(user.GetInt("Spectrum", "MeasEntity", 0));
}

} // namespace

Workbench::Workbench(Setup setup)
    : setup_(std::move(setup)), platform_(gui_, setup_.settingsFile, setup_.dataFolder) {
    SPECT::GetGlobals().LoadInfo(&platform_);
    SPECT::GetGlobals().SetMeasEntity(StoredEntity(*platform_.GetUser()));
    InstallStarterMaps(platform_);
    shell_ = std::make_unique<Shell>(Shell::Answers{
        [this] { return MayClose(); },
        [this](const std::string& path) { documents_->Open(path); },
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
                              },
                              setup_.quiet});
    shell_->setCentralWidget(middle_);
    documents_ = std::make_unique<Documents>(
        *shell_, gui_, platform_,
        Documents::Keeping{.sessions = !setup_.settingsFile.empty(), .events = setup_.savesEvents},
        Documents::Moments{
            .opened = [this](const std::vector<std::string>& remarks) { ShowOpened(remarks); },
            .closing = [this] { Leave(); },
            .closed = [this] { ShowClosed(); },
            .storing = [this] { documents_->Current()->SetLook(views_->Look()); },
            .missing = [this](const std::string& file) { ShowMissing(file); },
        });
    views_ = std::make_unique<OpenViews>(*middle_, *documents_, gui_, setup_.bridge);
    analyses_ = std::make_unique<AnalysisRunner>(
        AnalysisRunner::Around{*shell_, *documents_, *views_, gui_, platform_, setup_.bridge},
        [this] { ShowState(); });
    follower_ = std::make_unique<Follower>(*documents_, *views_, gui_, *middle_);
    pictures_ = std::make_unique<ViewPictures>(*shell_, *middle_, *documents_, gui_);
    middle_->SetWelcome(*new WelcomePage(*documents_, middle_));
    eventList_ = new EventDock(shell_.get(), platform_);
    menus_ = std::make_unique<Menus>(*shell_->menuBar(),
                                     MenuParts{*shell_, *middle_, *eventList_, *documents_, *views_,
                                               *analyses_, *pictures_, gui_, platform_, setup_.bridge});
    shell_->addDockWidget(Qt::RightDockWidgetArea, eventList_);
    views_->RestoreLayout();
    shell_->Restore(platform_);
    eventList_->hide(); // until there are events
    middle_->ShowWelcome(true);
    if (!setup_.moduleProblem.empty()) {
        middle_->Problem().Tell(HostQText("noModule", "Only traces can be shown"),
                                {QString::fromStdString(setup_.moduleProblem)});
    }
    NoticeStrip& offer = middle_->Offer();
    offer.Tell({}, {HostQText("offerAnalysis", "Spectra and maps appear here once there is an analysis.")});
    offer.AddAction("offerNew", HostQText("analysisNew", "&New Analysis..."), [this] { analyses_->New(); });
    offer.WhenClosed(HostQText("offerClose", "Do not offer this again"),
                     [this] { platform_.GetUser()->PutInt(kHostSection, kOffers, 0); });
    ShowOffer();
    QObject::connect(&statePoll_, &QTimer::timeout, &statePoll_, [this] {
        if (shell_->isVisible()) { // once it is closed, nobody is told anything any more
            owl::RunGuarded([this] { Follow(); });
        }
    });
    statePoll_.start(kStatePoll);
    pauses_ = std::make_unique<PauseWatch>(gui_, setup_.pause, [this] { KeepAll(); });
}

Workbench::~Workbench() {
    statePoll_.stop();
    pauses_.reset();
    documents_->KeepSession(); // a failure was told when the window was closed
    views_->CloseAll();
    eventList_->Close();
    SPECT::GetGlobals().SaveInfo(&platform_);
    menus_.reset();
    shell_.reset(); // before what its widgets look at
}

void Workbench::Start(const std::string& file) {
    shell_->show();
    shell_->activateWindow();
    documents_->OpenFirst(file);
}

bool Workbench::IsSettled() const {
    const TraceView* traces = views_->Traces();
    const Document* document = documents_->Current();
    // The place is looked at a few times in a second.
    if (document != nullptr && shell_->ShownPlace() != StatusOf(document->Recording()).place) {
        return false;
    }
    return !gui_.IsBusy() && follower_->IsUpToDate() && (traces == nullptr || traces->IsComplete());
}

void Workbench::ShowOpened(const std::vector<std::string>& remarks) {
    const Document& document = *documents_->Current();
    eventsChanged_ = std::make_unique<ActionListener>("Workbench", document.Events().GetChangedFlag(),
                                                      [this] { EventsChanged(); });
    follower_->Open();
    analyses_->ApplyRegression();
    if (setup_.macro) {
        analyses_->MakeFirst(*setup_.macro);
    }
    middle_->Repairs().Tell(HostQText("repairs", "About this recording"), Lines(remarks));
    middle_->ShowWelcome(false);
    eventList_->Open(document.Events(), [this](const XTimeInterval& interval) {
        middle_->PointAtTime(*interval.GetBeginPtr());
    });
    views_->OpenWanted();
    if (const std::optional<SpectrumLook>& look = document.Look()) {
        views_->Choose(*look);
    }
    KeepAll(); // before anything is computed
    views_->Focus();
    Follow();
    follower_->QueueRefresh();
}

void Workbench::Leave() {
    if (documents_->Current() != nullptr) {
        views_->StoreLayout();
    }
    views_->CloseAll();
    eventList_->Close();
    eventsChanged_.reset();
    follower_->Close();
}

void Workbench::ShowClosed() {
    middle_->Repairs().Tell({}, {});
    middle_->ShowWelcome(true);
    shell_->ShowText({});
    ShowState();
}

void Workbench::ShowMissing(const std::string& file) {
    middle_->Repairs().Tell(
        {}, {HostQText("lastGone", "%1 is not there any more. Connect its drive and start again, or open the "
                                   "recording from where it is now.")
                 .arg(QString::fromStdString(file))});
}

void Workbench::ShowState() {
    const Document* document = documents_->Current();
    shell_->ShowTitle(document != nullptr ? QString::fromStdString(document->Recording().GetFileNameText())
                                          : QString(),
                      document != nullptr && document->Events().IsChanged());
    const StatusFields fields = document != nullptr ? StatusOf(document->Recording()) : StatusFields();
    menus_->Update();
    ShowOffer();
    shell_->ShowFields(fields.recording, fields.montage, fields.place);
}

void Workbench::ShowOffer() {
    const bool wanted = platform_.GetUser()->GetInt(kHostSection, kOffers, 1) != 0;
    middle_->Offer().setVisible(wanted && analyses_->CanAnalyse() &&
                                documents_->Current()->Analyses().GetMain() == nullptr);
}

void Workbench::Follow() {
    ShowState();
    follower_->Look();
}

void Workbench::EventsChanged() {
    ShowState();
    const Document& document = *documents_->Current();
    const SpectMacroResult* main = document.Analyses().GetMain();
    if (main != nullptr && main->IsComputed() &&
        main->IsRecomputingNeeded(document.Recording().GetTraceInfo()->GetMtg(), {}, 0)) {
        shell_->ShowText(HostText("eventsStale", "The events have changed since the analysis was computed. "
                                                 "Choose Recompute to take them in."));
    }
}

bool Workbench::MayClose() {
    if (gui_.IsBusy()) {
        gui_.WhenIdle([this] { shell_->close(); });
        return false;
    }
    if (!documents_->MayEnd()) {
        return false;
    }
    StoreSettings();
    platform_.SaveSettings();
    return true;
}

void Workbench::StoreSettings() {
    if (documents_->Current() != nullptr) {
        views_->StoreSettings();
    }
    shell_->Store(platform_);
    eventList_->Store();
    SPECT::GetGlobals().SaveInfo(&platform_);
}

void Workbench::KeepAll() {
    documents_->KeepSession();
    StoreSettings();
    if (const std::string failure = platform_.TryToSaveSettings(); !failure.empty()) {
        qInfo("%s", failure.c_str()); // told when the window is closed
    }
}

} // namespace orvanta::review
