// SPDX-License-Identifier: GPL-3.0-or-later
// A spectrum view in a main window of the tests.
#pragma once

#include "host/toolkit/menu_templates.h"
#include "resources/menus/spectrum_menu.h"
#include "spectrum_view/command_ids.h"
#include "spectrum_view/spectrum.h"
#include "tests/spectrum_view/traces/trace_fixture.h"
#include "tests/support/qt/fake_global_window.h"
#include "tests/support/qt/recording_dc.h"

#include <QApplication>
#include <QSplitter>
#include <gmock/gmock.h>

namespace orvanta::test {

/// The small recording at 8 Hz, so frequencies up to 4 Hz; display settings as in a new process.
class ViewFixture : public TraceFixture {
protected:
    ViewFixture() {
        spectrum_view::Display() = {};
        owl::RegisterMenuTemplate(resources::kSpectrumMenu, resources::kSpectrumMenuItems);
    }
    ~ViewFixture() override {
        view.reset();
        owl::RegisterMenuTemplate(resources::kSpectrumMenu, {});
        spectrum_view::Display() = {};
    }

    Spectrum& Make() {
        view = std::make_unique<Spectrum>(window, recording.get(), &manager, false);
        return *view;
    }
    /// Made, set up and laid out to this size, not on the screen.
    Spectrum& Open(int width = 320, int height = 240) {
        Make().Create();
        view->resize(width, height);
        return *view;
    }
    /// On the screen, with everything drawn that was to be drawn.
    Spectrum& Show(int width = 320, int height = 240) {
        Make();
        return ShowMade(width, height);
    }
    Spectrum& ShowMade(int width = 320, int height = 240) {
        window.resize(width, height);
        view->Panes().resize(width, height);
        window.show();
        view->Panes().show();
        RunQueue();
        HideSideBar(); // which comes with the focus
        RunQueue();
        return *view;
    }
    /// Leaves the view all of its splitter.
    void HideSideBar() {
        for (int i = 0; i < view->Panes().count(); ++i) {
            view->Panes().widget(i)->setVisible(view->Panes().widget(i) == view.get());
        }
    }
    static void RunQueue() {
        QApplication::processEvents();
        QApplication::processEvents();
    }
    /// What the view draws inside a rectangle.
    RecordingDC& Draw(owl::TRect rect) {
        dc.Clear();
        view->Draw(dc, true, rect);
        return dc;
    }
    RecordingDC& Draw() { return Draw(view->GetClientRect()); }

    std::vector<owl::TRect> Rectangles() const {
        std::vector<owl::TRect> rectangles;
        for (const spectrum_view::TraceEntry& entry : view->GetTraces()) {
            rectangles.push_back(entry.rectangle);
        }
        return rectangles;
    }
    /// Names of the main spectra; "-" for none.
    std::vector<std::string> TraceNames() const {
        std::vector<std::string> names;
        for (const spectrum_view::TraceEntry& entry : view->GetTraces()) {
            names.push_back(entry.main == nullptr ? "-" : entry.main->GetName());
        }
        return names;
    }
    QAction& Item(unsigned id) {
        QAction* item = view->GetMenu().Item(id);
        EXPECT_NE(item, nullptr) << id;
        return *item;
    }
    double& Setting(const std::string& name) { return window.platform.user.values[name]; }

    FakeGlobalWindow window;
    std::unique_ptr<Spectrum> view;
    RecordingDC dc;
};

} // namespace orvanta::test
