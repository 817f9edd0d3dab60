// SPDX-License-Identifier: GPL-3.0-or-later
// The panel that lists spectra, beside a view of its own.
#pragma once

#include "host/toolkit/window.h"
#include "side_bar/spectra_panel.h"
#include "tests/side_bar/analysis_fixture.h"
#include "tests/support/map_user.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/recording_gui.h"

#include <QApplication>
#include <QHBoxLayout>

#include <utility>

namespace orvanta::test {

/// Gives its GUI; the macros' folder does not exist.
class PanelPlatform final : public GenericPlatform {
public:
    void FloatToStrLoc(char* /*buffer*/, int /*size*/, double /*value*/, int /*decimals*/) const override {}
    const GenericGUI* GetGUI() const override { return &gui; }
    UserType* GetUser() const override { return &user; }
    void ReadString(const char* /*section*/, const char* /*key*/, const char* /*defaultValue*/,
                    char* /*buffer*/, int /*maxLength*/) const override {}
    void WriteString(const char* /*section*/, const char* /*key*/, const char* /*value*/) override {}
    GenericProgress* CreateProgress(const char* text, const MSWindow& /*parent*/) const override {
        return gui.CreateProgress(text).release();
    }
    std::string GetAppFolder(const char* name) const override { return std::string("nowhere/") + name + "/"; }

    RecordingGui gui;
    mutable MapUser user;
};

/// Writes down whether its background was erased whenever it is drawn.
class ViewOfPanel final : public owl::TWindow {
public:
    std::vector<bool> TakeDraws() { return std::exchange(draws_, {}); }

protected:
    void Draw(owl::TDC& /*dc*/, bool erase, owl::TRect& /*rect*/) override { draws_.push_back(erase); }

private:
    std::vector<bool> draws_;
};

/// The view and the panel on the screen, side by side.
class PanelFixture : public AnalysisFixture {
protected:
    PanelFixture() {
        view = new ViewOfPanel;
        view->setMinimumSize(200, 200);
        (new QHBoxLayout(&window))->addWidget(view);
    }

    TFormListenerSpectra1& Open() {
        panel = new TFormListenerSpectra1(view->GetHandle(), &platform, recording.get(), &manager);
        window.layout()->addWidget(panel);
        window.resize(900, 800);
        window.show();
        window.activateWindow();
        RunQueue();
        view->TakeDraws();
        return *panel;
    }
    static void RunQueue() {
        QApplication::processEvents();
        QApplication::processEvents();
    }
    /// How the view is drawn because of this: one entry for each time, true with its background erased.
    std::vector<bool> DrawsOf(const std::function<void()>& action) {
        RunQueue();
        view->TakeDraws();
        action();
        RunQueue();
        return view->TakeDraws();
    }
    /// After the focus went elsewhere and this was done.
    bool ViewHasFocusAfter(const std::function<void()>& action) {
        window.setFocusPolicy(Qt::StrongFocus);
        window.setFocus();
        EXPECT_FALSE(view->hasFocus());
        action();
        return window.focusWidget() == view;
    }
    template <typename Control>
    Control& Get(const char* name) {
        return *panel->findChild<Control*>(name);
    }
    FormUser User() { return FormUser(*panel); }

    PanelPlatform platform;
    QWidget window;
    ViewOfPanel* view = nullptr; ///< owned by the window, as the panel
    TFormListenerSpectra1* panel = nullptr;
};

} // namespace orvanta::test
