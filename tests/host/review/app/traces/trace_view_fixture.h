// SPDX-License-Identifier: GPL-3.0-or-later
// A trace view on a small recording, and a user of it.
#pragma once

#include "host/review/app/events/event_editor.h"
#include "host/review/app/traces/trace_commands.h"
#include "host/review/app/traces/trace_view.h"
#include "tests/support/memory_source.h"
#include "tests/support/qt/fake_global_window.h"
#include "tests/support/qt/idle.h"
#include "tests/support/small_recording.h"

#include <QApplication>
#include <QDialog>
#include <QMouseEvent>
#include <QSplitter>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace orvanta::test {

/// What a view points at.
class PointedWindow final : public GlobalWindow {
public:
    GenericPlatform* GetPlatform() const override { return &platform; }
    std::string GetErrorStr() const override { return "Error"; }
    bool IsQuiet() const override { return true; }
    void SetMessageText(const std::string& text) override { message = text; }
    SideBarManager& GetSideBar() override { return sideBar; }
    void PointAtTime(const XTime& time) override { times.push_back(time.Seconds()); }
    void PointAtChannel(const std::string& name) override { channels.push_back(name); }

    mutable FakePlatform platform;
    FakeSideBar sideBar;
    std::string message;
    std::vector<double> times;
    std::vector<std::string> channels;
};

/// Sixty seconds of Fp1, F3 and Cz at 8 Hz; a window of 658 × 400 pixels whose names take 52, so that a page
/// of ten seconds has 60 pixels a second, from 52 on. Fp1 stands from 33 to 130, F3 to 227, Cz to 324.
class TraceViewTest : public testing::Test {
protected:
    static constexpr int kWidth = 658;
    static constexpr int kHeight = 400;

    TraceViewTest() : TraceViewTest(SmallRecording(60, {{20, 5, "seizure"}, {30, {}, "spike"}})) {}
    explicit TraceViewTest(std::unique_ptr<EEGFileInfoType> file)
        : recording(std::move(file)), events(*recording) {
        MakeView();
    }

    void MakeView() {
        view = new review::TraceView(window, *recording, events);
        view->setFixedSize(kWidth, kHeight);
        window.resize(kWidth, kHeight);
        view->Create();
        window.show();
        view->Panes().show();
        view->show();
        Draw();
    }
    /// As the program does when a view is closed.
    void CloseView() {
        view->Destroy();
        delete view;
        view = nullptr;
    }

    void Draw() const { WaitUntilIdle(); }
    double Start() const { return view->GetPage().GetBeginPtr()->Seconds(); }
    double Length() const { return view->GetPage().GetEndPtr()->Seconds() - Start(); }
    void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(view, static_cast<Qt::Key>(key), modifiers);
    }
    /// \param at pixels in the view
    void Click(const QPoint& at, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::mouseClick(view, Qt::LeftButton, modifiers, at);
    }
    void Drag(const QPoint& from, const QPoint& to, Qt::MouseButton button = Qt::LeftButton,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        Send(QEvent::MouseButtonPress, from, button, button, modifiers);
        Send(QEvent::MouseMove, to, Qt::NoButton, button, modifiers);
        Send(QEvent::MouseButtonRelease, to, button, Qt::NoButton, modifiers);
    }
    void Hover(const QPoint& at) const {
        Send(QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    }
    void Turn(double notches, const QPoint& at, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QWheelEvent event(at, view->mapToGlobal(at), {}, {0, static_cast<int>(120 * notches)}, Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view, &event);
    }

    PointedWindow window;
    std::unique_ptr<EEGFileInfoType> recording;
    review::EventEditor events;
    review::TraceView* view = nullptr; ///< owned by the window

private:
    void Send(QEvent::Type type, const QPoint& at, Qt::MouseButton button, Qt::MouseButtons buttons,
              Qt::KeyboardModifiers modifiers) const {
        QMouseEvent event(type, at, view->mapToGlobal(at), button, buttons, modifiers);
        QApplication::sendEvent(view, &event);
    }
};

} // namespace orvanta::test
