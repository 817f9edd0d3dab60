// SPDX-License-Identifier: GPL-3.0-or-later
// The open recording, one at a time, and what is kept of it.
#pragma once

#include "host/review/app/main_window/recent_files.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class GenericPlatform;
class QWidget;

namespace orvanta::review {

class Document;
class EventAutosave;
struct Session;
class WorkGui;

/// Opens, switches and closes recordings. Failures are shown to the user, not thrown. GUI thread.
class Documents {
public:
    struct Keeping {
        bool sessions = false; ///< from one day to the next
        bool events = false;   ///< events and marks of bad channels, beside the recording and unasked
    };
    /// What the windows have to do with it.
    struct Moments {
        /// \param remarks what is worth knowing about the recording, a sentence each
        std::function<void(const std::vector<std::string>& remarks)> opened;
        std::function<void()> closing; ///< what looks at the recording must go
        std::function<void()> closed;
        std::function<void()> storing; ///< the document is to know what the session keeps of its views
        std::function<void(const std::string& path)> missing; ///< the recording of the last session
    };

    /// \param window, gui, platform must outlive this
    Documents(QWidget& window, WorkGui& gui, GenericPlatform& platform, Keeping keeping, Moments moments);
    ~Documents();
    Documents(const Documents&) = delete;
    Documents& operator=(const Documents&) = delete;

    /// Null while no recording is open.
    Document* Current() const { return document_.get(); }
    RecentFiles& Recent() { return recent_; }

    /// This file, else the one of the last session, else none.
    void OpenFirst(const std::string& file);
    void AskForFile();
    /// Also while a computation runs: it is cancelled first.
    void Open(const std::string& path);
    void Close();
    /// Asks what becomes of changed events, then stores the session.
    /// \return false when the user wants to go on
    bool MayEnd();

    /// For a sudden end: tells nothing, and does nothing while the session is as it was kept last.
    void KeepSession();
    /// Of bad channels, beside the recording; where that fails the session has them, which is told once.
    void KeepMarks();

private:
    /// Tells why the file is refused; what is open then stays.
    void Load(const std::string& path);
    /// \return false when the user wants to keep what is open
    bool MayUnload();
    void Unload();
    std::string SessionPath() const;
    void StoreSession();
    bool KeepsSession() const { return keeping_.sessions && document_ != nullptr; }
    Session SessionNow() const;
    /// \return what is worth knowing about it
    std::vector<std::string> RestoreSession();

    QWidget& window_;
    WorkGui& gui_;
    GenericPlatform& platform_;
    Keeping keeping_;
    Moments moments_;
    RecentFiles recent_;
    std::unique_ptr<Document> document_;
    std::unique_ptr<EventAutosave> autosave_; ///< of the document's events; null where it is not wanted
    std::unique_ptr<Session> kept_;           ///< of the document, as it was kept last; null before
    bool toldOfMarks_ = false;                ///< that those of the document cannot be written
};

} // namespace orvanta::review
