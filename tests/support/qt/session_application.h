// SPDX-License-Identifier: GPL-3.0-or-later
// The application as a session of a user needs it: with the real settings file and the real reader.
#pragma once

#include "host/platform/host_platform.h"
#include "host/signal_base/recording.h"
#include "host/toolkit/menu.h"
#include "spectra_contract/spectra_mgr.h"
#include "tests/support/qt/fake_global_window.h"

#include <QAction>
#include <QApplication>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace orvanta::test {

/// The main window over the real platform.
class SessionWindow final : public GlobalWindow {
public:
    explicit SessionWindow(GenericPlatform& platform) : platform_(platform) {}
    GenericPlatform* GetPlatform() const override { return &platform_; }
    std::string GetErrorStr() const override { return "Error"; }
    bool IsQuiet() const override { return false; }
    void SetMessageText(const std::string& /*text*/) override {}
    SideBarManager& GetSideBar() override { return sideBar_; }
    void PointAtChannel(const std::string& name) override { pointedAt = name; }

    std::string pointedAt;

private:
    GenericPlatform& platform_;
    FakeSideBar sideBar_;
};

/// The application with one recording and its view, which the derived class makes.
template <typename View>
class SessionApplication {
public:
    /// \param settingsFolder holds "settings.ini" and the data of the user
    SessionApplication(const std::string& recordingFile, const std::string& settingsFolder)
        : platform(gui, settingsFolder + "settings.ini", settingsFolder + "data"),
          recording(signal::OpenRecording(recordingFile)), window(platform), manager(recording.get(), &gui) {}
    ~SessionApplication() { Close(); }
    SessionApplication(const SessionApplication&) = delete;
    SessionApplication& operator=(const SessionApplication&) = delete;

    /// Shows the view and gives it the focus.
    void Show(int width, int height) {
        window.resize(width, height);
        view->Panes().resize(width, height);
        window.show();
        view->Panes().show();
        window.activateWindow();
        view->SetFocus();
        RunQueue();
    }
    static void RunQueue() {
        QApplication::processEvents();
        QApplication::processEvents();
    }
    /// The user opens the menu.
    owl::TMenu& OpenMenu() {
        view->GetMenu().aboutToShow();
        return view->GetMenu();
    }
    /// The user opens the menu and chooses an item.
    void Choose(unsigned command) {
        QAction* item = OpenMenu().Item(command);
        ASSERT_NE(item, nullptr) << command;
        ASSERT_TRUE(item->isEnabled()) << command;
        item->trigger();
        RunQueue();
    }

    RecordingGui gui;
    platform::HostPlatform platform;
    std::unique_ptr<EEGFileInfoType> recording;
    SessionWindow window;
    SpectraMgr manager;
    std::unique_ptr<View> view;

protected:
    void Close() {
        window.Destroy();
        view.reset();
    }
};

} // namespace orvanta::test
