// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/window.h"

#include "host/toolkit/module.h"

#include <QApplication>
#include <QKeyEvent>
#include <QSplitter>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using owl::WindowEvent;
using Log = std::vector<std::string>;

std::string At(const owl::TPoint& point) {
    return std::to_string(point.x) + "," + std::to_string(point.y);
}

/// Writes down what it hears, and calls the default handling first.
class View : public owl::TWindow {
public:
    explicit View(owl::TWindow* parent = nullptr, owl::TModule* module = nullptr) : TWindow(parent, module) {}

    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;
    void Destroy(int retVal) override {
        log.push_back("destroy " + std::to_string(retVal));
        TWindow::Destroy(retVal);
    }

    Log log;
    bool swallow = false; ///< keys without their default handling

protected:
    void SetupWindow() override {
        TWindow::SetupWindow();
        log.emplace_back("setup");
    }

private:
    static const owl::TResponseTable __entries; // NOLINT(bugprone-reserved-identifier)

    LPARAM EvTable(WPARAM wParam, LPARAM lParam) {
        log.push_back("table " + std::to_string(wParam) + " " + std::to_string(lParam));
        return 42;
    }
    void EvSize(unsigned sizeType, const owl::TSize& size) {
        TWindow::EvSize(sizeType, size);
        log.push_back("size " + std::to_string(sizeType) + " " + std::to_string(size.cx) + "x" +
                      std::to_string(size.cy));
    }
    void EvKeyDown(unsigned key, unsigned repeat, unsigned flags) {
        if (!swallow) {
            TWindow::EvKeyDown(key, repeat, flags);
        }
        log.push_back("key " + std::to_string(key) + " " + std::to_string(repeat) + " " +
                      std::to_string(flags));
    }
    void EvLButtonDown(unsigned modKeys, const owl::TPoint& point) {
        log.push_back("down " + std::to_string(modKeys) + " " + At(point));
    }
    void EvLButtonUp(unsigned modKeys, const owl::TPoint& point) {
        log.push_back("up " + std::to_string(modKeys) + " " + At(point));
    }
    void EvLButtonDblClk(unsigned modKeys, const owl::TPoint& point) {
        log.push_back("double " + std::to_string(modKeys) + " " + At(point));
    }
    void EvMouseMove(unsigned modKeys, const owl::TPoint& point) {
        log.push_back("move " + std::to_string(modKeys) + " " + At(point));
    }
    void EvMouseWheel(unsigned modKeys, int delta, const owl::TPoint& point) {
        TWindow::EvMouseWheel(modKeys, delta, point);
        log.push_back("wheel " + std::to_string(modKeys) + " " + std::to_string(delta) + " " + At(point));
    }
};

constinit const owl::TResponseTable View::__entries = {
    owl::Message<&View::EvTable>(14160),
    owl::On<WindowEvent::Size, &View::EvSize>(),
    owl::On<WindowEvent::KeyDown, &View::EvKeyDown>(),
    owl::On<WindowEvent::LButtonDown, &View::EvLButtonDown>(),
    owl::On<WindowEvent::LButtonUp, &View::EvLButtonUp>(),
    owl::On<WindowEvent::LButtonDblClk, &View::EvLButtonDblClk>(),
    owl::On<WindowEvent::MouseMove, &View::EvMouseMove>(),
    owl::On<WindowEvent::MouseWheel, &View::EvMouseWheel>(),
};

const owl::TResponseEntry* View::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<owl::TWindow>(__entries, *this, key);
}

void Press(QWidget& window, int key, Qt::KeyboardModifiers modifiers, quint32 scanCode,
           bool repeats = false) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, scanCode, 0, 0, {}, repeats);
    QApplication::sendEvent(&window, &event);
}

/// \return whether the window kept the event; Qt hands on only what comes from the mouse itself
bool TurnWheel(QWidget& window, int delta) {
    QWheelEvent event({3, 4}, window.mapToGlobal(QPointF(3, 4)), {}, {0, delta}, Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&window, &event);
    return event.isAccepted();
}

TEST(Window, IsSetUpOnce) {
    View view;
    EXPECT_EQ(view.log, Log{});
    view.Create();
    view.Create();
    EXPECT_EQ(view.log, Log{"setup"});
    EXPECT_TRUE(view.IsCreated());
}

TEST(Window, IsSetUpBeforeItIsSizedAndShown) {
    View view;
    view.resize(50, 40);
    view.show();
    EXPECT_EQ(view.log, (Log{"setup", "size 0 50x40"}));
}

TEST(Window, SetsUpTheWindowsInIt) {
    View frame;
    View view(&frame);
    frame.Create();
    EXPECT_EQ(view.log, Log{"setup"});
}

TEST(Window, IsDestroyedWithTheWindowsInIt) {
    View frame;
    View view(&frame);
    frame.show();
    frame.log.clear();
    view.log.clear();
    frame.Destroy(3);
    EXPECT_EQ(view.log, Log{"destroy 3"});
    EXPECT_EQ(frame.log, Log{"destroy 3"});
    EXPECT_FALSE(frame.IsCreated() || frame.isVisible());
}

TEST(Window, ReachesTheWindowsInASplitter) {
    owl::TModule module("module", nullptr, false);
    View frame(nullptr, &module);
    QSplitter splitter(&frame);
    View view;
    splitter.addWidget(&view);
    frame.show();
    EXPECT_EQ(view.log.front(), "setup");
    EXPECT_EQ(view.GetModule(), &module);
    frame.Destroy(1);
    EXPECT_EQ(view.log.back(), "destroy 1");
}

TEST(Window, IsDestroyedWhenTheUserClosesIt) {
    View view;
    view.show();
    view.log.clear();
    view.close();
    EXPECT_EQ(view.log, Log{"destroy 0"});
}

TEST(Window, HasTheModuleOfTheWindowAroundIt) {
    owl::TModule outer("outer", nullptr, false);
    owl::TModule own("own", nullptr, false);
    View frame(nullptr, &outer);
    const View view(&frame);
    const View other(&frame, &own);
    EXPECT_EQ(view.GetModule(), &outer);
    EXPECT_EQ(other.GetModule(), &own);
    EXPECT_EQ(View().GetModule(), nullptr);
}

TEST(Window, TellsItsHandleAndItsRectangle) {
    View view;
    view.setGeometry(10, 20, 50, 40);
    EXPECT_EQ(view.GetHandle(), HWND(&view));
    EXPECT_EQ(view.GetClientRect(), (owl::TRect{0, 0, 50, 40}));
}

TEST(Window, AnswersASentMessage) {
    View view;
    EXPECT_EQ(view.SendMessage(14160, 5, -6), 42);
    EXPECT_EQ(view.log, Log{"table 5 -6"});
    EXPECT_EQ(view.SendMessage(14161), 0);
}

TEST(Window, HearsAPostedMessageLater) {
    View view;
    view.PostMessage(14160, 1, 2);
    EXPECT_EQ(view.log, Log{});
    QApplication::processEvents();
    EXPECT_EQ(view.log, Log{"table 1 2"});
}

TEST(Window, HearsNoMessageAfterItsEnd) {
    View view;
    view.show();
    view.PostMessage(14160);
    view.Destroy(0);
    view.log.clear();
    QApplication::processEvents();
    EXPECT_EQ(view.log, Log{});
}

TEST(Window, HearsOfItsSize) {
    View view;
    view.show();
    view.log.clear();
    view.resize(70, 60);
    EXPECT_EQ(view.log, Log{"size 0 70x60"});
}

TEST(Window, HearsThatItIsMinimized) {
    View view;
    view.resize(50, 40);
    view.show();
    view.log.clear();
    view.setWindowState(Qt::WindowMinimized);
    ASSERT_FALSE(view.log.empty());
    EXPECT_EQ(view.log.front(), "size 1 50x40");
}

TEST(Window, HearsVirtualKeys) {
    View view;
    view.Create();
    Press(view, Qt::Key_Exclam, Qt::ControlModifier | Qt::ShiftModifier, 10);
    Press(view, Qt::Key_Down, Qt::NoModifier, 116, true);
    Press(view, Qt::Key_LaunchMail, Qt::NoModifier, 0);
    EXPECT_EQ(view.log, (Log{"setup", "key 49 1 10", "key 40 1 " + std::to_string(0x4000 + 116)}));
}

TEST(Window, HandsKeysOnAfterTheirDefaultHandling) {
    View frame;
    View view(&frame);
    frame.Create();
    frame.log.clear();
    view.swallow = true;
    Press(view, Qt::Key_A, Qt::NoModifier, 38);
    EXPECT_EQ(frame.log, Log{});
    view.swallow = false;
    Press(view, Qt::Key_A, Qt::NoModifier, 38);
    EXPECT_EQ(frame.log, Log{"key 65 1 38"});
}

TEST(Window, HearsClicksMovesAndDoubleClicks) {
    View frame;
    View view(&frame);
    view.resize(50, 40);
    frame.resize(60, 50);
    frame.show();
    view.log.clear();
    frame.log.clear();
    QTest::mousePress(&view, Qt::LeftButton, Qt::ShiftModifier, {5, 6});
    QTest::mouseMove(&view, {7, 8});
    QTest::mouseRelease(&view, Qt::LeftButton, {}, {7, 8});
    QTest::mouseDClick(&view, Qt::LeftButton, {}, {9, 10});
    QTest::mousePress(&view, Qt::RightButton, {}, {1, 1});
    EXPECT_EQ(view.log.front(), "down 5 5,6");
    EXPECT_EQ(std::count(view.log.begin(), view.log.end(), "up 0 7,8"), 1);
    EXPECT_EQ(std::count(view.log.begin(), view.log.end(), "double 1 9,10"), 1);
    EXPECT_EQ(std::count_if(view.log.begin(), view.log.end(),
                            [](const std::string& line) { return line.ends_with("7,8") && line[0] == 'm'; }),
              1);
    EXPECT_EQ(frame.log, Log{});
}

TEST(Window, HearsTheWheelAndHandsItOn) {
    View view;
    view.Create();
    view.log.clear();
    EXPECT_FALSE(TurnWheel(view, -120));
    EXPECT_EQ(view.log, Log{"wheel 8 -120 3,4"});
}

TEST(Window, IsEnabledAndDisabled) {
    View view;
    view.EnableWindow(false);
    EXPECT_FALSE(view.isEnabled());
    view.EnableWindow(true);
    EXPECT_TRUE(view.isEnabled());
}

} // namespace
