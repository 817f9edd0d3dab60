// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/documents.h"

#include "host/review/app/events/event_autosave.h"
#include "host/review/app/events/event_editor.h"
#include "host/review/app/main_window/document.h"
#include "host/review/app/main_window/event_saving.h"
#include "host/review/app/main_window/host_text.h"
#include "host/review/app/main_window/kept_marks.h"
#include "host/review/app/main_window/session.h"
#include "host/review/app/main_window/text_setting.h"
#include "host/review/app/main_window/work_gui.h"
#include "host/review/app/montage/average_electrodes.h"
#include "host/review/app/montage/montage_folder.h"
#include "host/review/app/refusal_text.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/modal_gateway.h"
#include "spectra_contract/file_path.h"
#include "spectra_contract/recording.h"

#include <QLoggingCategory>

#include <filesystem>
#include <utility>

namespace orvanta::review {

namespace {

constexpr const char* kLastFile = "LastFile";
constexpr const char* kFolder = "Folder";

void Append(std::vector<std::string>& remarks, const std::vector<std::string>& more) {
    remarks.insert(remarks.end(), more.begin(), more.end());
}

/// Offers the user's montages for the recording. \return what is worth knowing about it
std::vector<std::string> PrepareMontages(EEGFileInfoType& recording, const GenericPlatform& platform) {
    const MontageFiles montages = LoadMontageFiles(platform.GetAppFolder(kMontageFolder));
    RestoreAverageElectrodes(recording, platform);
    std::vector<std::string> remarks = montages.problems;
    Append(remarks, OfferMontages(recording, montages.files));
    if (std::string average = AverageRemark(recording); !average.empty()) {
        remarks.push_back(std::move(average));
    }
    return remarks;
}

} // namespace

Documents::Documents(QWidget& window, WorkGui& gui, GenericPlatform& platform, Keeping keeping,
                     Moments moments)
    : window_(window), gui_(gui), platform_(platform), keeping_(keeping), moments_(std::move(moments)),
      recent_(platform) {}

Documents::~Documents() = default;

void Documents::OpenFirst(const std::string& file) {
    const std::string last = keeping_.sessions ? ReadText(platform_, kLastFile) : std::string();
    std::error_code unknown;
    if (!file.empty()) {
        Open(file);
    } else if (!last.empty() && std::filesystem::exists(last, unknown)) {
        Open(last);
    } else if (!last.empty()) {
        moments_.missing(last); // it stays the last one: its drive may be there the next time
    }
}

void Documents::AskForFile() {
    const std::string names = HostText("openRecordings", "Recordings");
    const std::optional<std::string> chosen = owl::CurrentModalGateway().AskFileToOpen(
        HWND(&window_),
        {.title = HostText("openTitle", "Open a Recording"),
         .filter = names +
                   "|*.edf *.bdf *.rec *.vhdr|EDF, EDF+|*.edf *.rec|BDF, BDF+|*.bdf|BrainVision|*.vhdr|" +
                   HostText("openAll", "All files") + "|*",
         .extension = {},
         .folder = ReadText(platform_, kFolder),
         .name = {}});
    if (chosen) {
        Open(*chosen);
    }
}

void Documents::Open(const std::string& path) {
    gui_.WhenIdle([this, path] { Load(path); });
}

void Documents::Load(const std::string& path) {
    std::unique_ptr<Document> opened;
    try {
        opened = std::make_unique<Document>(path, gui_);
    } catch (const std::exception& error) {
        gui_.ShowError(RefusalText(error, PModule::Named("Orvanta")));
        return;
    }
    if (!MayUnload()) {
        return;
    }
    Unload();
    document_ = std::move(opened);
    kept_.reset();
    toldOfMarks_ = false;
    recent_.Add(document_->Path());
    WriteText(platform_, kLastFile, document_->Path());
    WriteText(platform_, kFolder, FilePath(document_->Path()).GetFolder());
    std::vector<std::string> remarks = document_->Repairs();
    Append(remarks, PrepareMontages(document_->Recording(), platform_));
    if (keeping_.events) {
        autosave_ = std::make_unique<EventAutosave>(document_->Events());
    }
    Append(remarks, RestoreSession());
    moments_.opened(remarks);
}

void Documents::Close() {
    gui_.WhenIdle([this] {
        if (document_ != nullptr && MayUnload()) {
            WriteText(platform_, kLastFile, {});
            Unload();
        }
    });
}

bool Documents::MayUnload() {
    return document_ == nullptr || AskToSaveEvents(HWND(&window_), document_->Events());
}

bool Documents::MayEnd() {
    if (!MayUnload()) {
        return false;
    }
    StoreSession();
    return true;
}

void Documents::Unload() {
    StoreSession();
    moments_.closing();
    autosave_.reset();
    document_.reset();
    moments_.closed();
}

std::string Documents::SessionPath() const {
    return SessionFile(platform_.GetAppFolder("sessions"), document_->Path());
}

std::vector<std::string> Documents::RestoreSession() {
    if (keeping_.sessions) {
        if (const std::optional<Session> session = LoadSession(SessionPath())) {
            toldOfMarks_ = !session->marks.empty();
            return Restore(*session, *document_, gui_);
        }
    }
    return {};
}

Session Documents::SessionNow() const {
    moments_.storing();
    return SessionOf(*document_);
}

void Documents::StoreSession() {
    if (!KeepsSession()) {
        return;
    }
    try {
        SaveSession(SessionPath(), SessionNow());
    } catch (const std::exception& error) {
        gui_.ShowError(error.what());
    }
}

void Documents::KeepSession() {
    if (!KeepsSession()) {
        return;
    }
    try {
        auto now = std::make_unique<Session>(SessionNow());
        if (kept_ == nullptr || !(*now == *kept_)) {
            SaveSession(SessionPath(), *now);
            kept_ = std::move(now);
        }
    } catch (const std::exception& error) {
        qInfo("%s", error.what());
    }
}

void Documents::KeepMarks() {
    if (document_ == nullptr || !keeping_.events) {
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

} // namespace orvanta::review
