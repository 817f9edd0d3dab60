// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/menu.h"
#include "host/toolkit/window.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

using Log = std::vector<std::string>;

/// Writes down in a common log when the focus comes and goes, and from or to whom.
class View : public owl::TWindow {
public:
    View(const char* name, owl::TWindow* parent, Log& log) : TWindow(parent), log_(log) {
        setObjectName(name);
    }

    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

    std::function<void()> onFocus = [] {};

private:
    static const owl::TResponseTable __entries; // NOLINT(bugprone-reserved-identifier)

    static std::string Name(HWND window) {
        return window ? window.Widget()->objectName().toStdString() : "none";
    }
    void EvSetFocus(HWND lost) {
        TWindow::EvSetFocus(lost);
        log_.push_back(Name(GetHandle()) + " from " + Name(lost));
        onFocus();
    }
    void EvKillFocus(HWND got) {
        TWindow::EvKillFocus(got);
        log_.push_back(Name(GetHandle()) + " to " + Name(got));
    }

    Log& log_;
};

constinit const owl::TResponseTable View::__entries = {
    owl::On<owl::WindowEvent::SetFocus, &View::EvSetFocus>(),
    owl::On<owl::WindowEvent::KillFocus, &View::EvKillFocus>(),
};

const owl::TResponseEntry* View::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<owl::TWindow>(__entries, *this, key);
}

/// A frame with two views, an edit in the frame and one in the first view. The first view has the focus.
class WindowFocus : public testing::Test {
protected:
    WindowFocus() {
        auto* row = new QHBoxLayout(&frame);
        row->addWidget(&first);
        row->addWidget(&second);
        row->addWidget(&panel);
        inside.setParent(&first);
        frame.show();
        frame.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&frame));
        first.SetFocus();
        log.clear();
    }

    Log log;
    owl::TWindow frame;
    View first{"first", &frame, log};
    View second{"second", &frame, log};
    QLineEdit panel{&frame};
    QLineEdit inside;
};

TEST_F(WindowFocus, ChangesOnceBetweenWindows) {
    second.SetFocus();
    EXPECT_EQ(log, (Log{"first to second", "second from first"}));
    first.SetFocus();
    EXPECT_EQ(log, (Log{"first to second", "second from first", "second to first", "first from second"}));
}

TEST_F(WindowFocus, StaysWhenTheWindowHasItAlready) {
    first.SetFocus();
    EXPECT_EQ(log, Log{});
}

TEST_F(WindowFocus, StaysWithTheWindowOfAControl) {
    inside.setFocus();
    EXPECT_TRUE(inside.hasFocus());
    first.SetFocus();
    EXPECT_EQ(log, Log{});
}

TEST_F(WindowFocus, ComesToTheWindowOfAControl) {
    second.SetFocus();
    log.clear();
    inside.setFocus();
    EXPECT_EQ(log, (Log{"second to first", "first from second"}));
}

TEST_F(WindowFocus, StaysWhileAPanelOfTheFrameHasIt) {
    panel.setFocus();
    first.SetFocus();
    EXPECT_EQ(log, Log{});
    panel.setFocus();
    second.SetFocus();
    EXPECT_EQ(log, (Log{"first to second", "second from first"}));
}

TEST_F(WindowFocus, StaysWhileAMenuIsOpen) {
    constexpr owl::MenuItem kItems[] = {{1, "One"}};
    owl::TMenu menu(kItems, &first, &first);
    menu.popup({5, 5});
    QApplication::processEvents();
    menu.hide();
    QApplication::processEvents();
    EXPECT_EQ(log, Log{});
}

TEST_F(WindowFocus, StaysWhileAListDropsDown) {
    QComboBox combo(&first);
    combo.addItems({"a", "b"});
    combo.show();
    combo.setFocus();
    combo.showPopup();
    QApplication::processEvents();
    combo.hidePopup();
    QApplication::processEvents();
    EXPECT_EQ(log, Log{});
}

TEST_F(WindowFocus, StaysWhileADialogOfTheWindowIsOpen) {
    for (QWidget* parent : {static_cast<QWidget*>(&first), static_cast<QWidget*>(nullptr)}) {
        QDialog dialog(parent);
        QLineEdit edit(&dialog);
        dialog.show();
        dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        edit.setFocus();
        dialog.close();
        frame.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
        first.SetFocus();
    }
    EXPECT_EQ(log, Log{});
}

TEST_F(WindowFocus, StaysWhileTheWindowIsDisabledForADialog) {
    first.EnableWindow(false);
    EXPECT_FALSE(second.hasFocus());
    first.EnableWindow(true);
    first.SetFocus();
    EXPECT_TRUE(first.hasFocus());
    EXPECT_EQ(log, Log{});
}

TEST_F(WindowFocus, ComesToAWindowWithinAnother) {
    View map("map", &first, log);
    map.show();
    map.SetFocus();
    EXPECT_EQ(log, Log{"map from first"});
    first.SetFocus();
    EXPECT_EQ(log, (Log{"map from first", "map to first"}));
}

TEST_F(WindowFocus, MayBeMovedOnInAHandler) {
    second.onFocus = [this] { first.SetFocus(); };
    second.SetFocus();
    EXPECT_EQ(log, (Log{"first to second", "second from first", "second to first", "first from second"}));
}

TEST_F(WindowFocus, IsToldNoMoreToADestroyedWindow) {
    first.Destroy();
    second.SetFocus();
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(log.size(), 1U);
    EXPECT_EQ(log.front().substr(0, 11), "second from");
}

TEST_F(WindowFocus, ComesFromNobodyWhenTheWindowIsGone) {
    auto third = std::make_unique<View>("third", &frame, log);
    third->show();
    third->SetFocus();
    log.clear();
    third.reset();
    second.SetFocus();
    EXPECT_EQ(log.size(), 1U);
    EXPECT_EQ(log.front().substr(0, 11), "second from");
}

} // namespace
