// SPDX-License-Identifier: GPL-3.0-or-later
// Failures of handlers that Qt called for.
#include "host/toolkit/event_guard.h"

#include "host/toolkit/gadget_bar.h"
#include "host/toolkit/menu.h"
#include "host/toolkit/window.h"
#include "tests/support/qt/scripted_user.h"

#include <QComboBox>
#include <QTest>
#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using orvanta::test::ScriptedUser;
using owl::WindowEvent;

constexpr unsigned kCommand = 7;
constexpr unsigned kMessage = 8;
constexpr owl::MenuItem kItems[] = {{kCommand, "Fail"}};

/// Fails at everything.
class Failing final : public owl::TWindow {
public:
    using TWindow::TWindow;
    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

private:
    static const owl::TResponseTable __entries; // NOLINT(bugprone-reserved-identifier): the family's name

    void CmFail() { throw std::runtime_error("no paper"); }
    void EvMessage(WPARAM, LPARAM) { throw std::runtime_error("no message"); }
    void EvKeyDown(unsigned, unsigned, unsigned) { throw std::runtime_error("no key"); }
    void EvSetFocus(HWND) { throw std::runtime_error("no focus"); }
};

constinit const owl::TResponseTable Failing::__entries = {
    owl::Command<&Failing::CmFail>(kCommand),
    owl::Message<&Failing::EvMessage>(kMessage),
    owl::On<WindowEvent::KeyDown, &Failing::EvKeyDown>(),
    owl::On<WindowEvent::SetFocus, &Failing::EvSetFocus>(),
};

const owl::TResponseEntry* Failing::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<owl::TWindow>(__entries, *this, key);
}

/// Fails whenever it draws.
class Dry final : public owl::TWindow {
protected:
    void Draw(owl::TDC&, bool, owl::TRect&) override { throw std::runtime_error("no ink"); }
};

class Failures : public testing::Test {
protected:
    /// What the user was told.
    std::string Told() const {
        EXPECT_EQ(user.Messages().size(), 1u);
        return user.Messages().empty() ? std::string() : user.Messages().front().text;
    }

    Failing window;
    ScriptedUser user;
};

TEST_F(Failures, AreToldInABoxOfErrors) {
    user.AnswersMessage(owl::kIdOk);
    owl::TellFailure(std::runtime_error("no paper"));
    EXPECT_EQ(user.Messages(), (std::vector<ScriptedUser::Message>{
                                   {nullptr, "This could not be finished:\nno paper", "Error", 16}}));
}

TEST_F(Failures, OfDrawingAreToldOnceAndEndThere) {
    Dry dry;
    user.AnswersMessage(owl::kIdOk);
    dry.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dry));
    QCoreApplication::processEvents();
    EXPECT_EQ(Told(), "This could not be finished:\nno ink");
}

TEST_F(Failures, OfAPostedMessageEndThere) {
    user.AnswersMessage(owl::kIdOk);
    window.PostMessage(kMessage);
    QCoreApplication::processEvents();
    EXPECT_EQ(Told(), "This could not be finished:\nno message");
}

TEST_F(Failures, OfAMenuItemEndThere) {
    owl::TMenu menu(kItems, &window);
    user.AnswersMessage(owl::kIdOk);
    menu.Item(kCommand)->trigger();
    EXPECT_EQ(Told(), "This could not be finished:\nno paper");
}

TEST_F(Failures, OfAToolButtonEndThere) {
    owl::GadgetBar bar(window);
    QToolButton* button = bar.AddButton(kCommand, 0, "Fail");
    user.AnswersMessage(owl::kIdOk);
    button->click();
    EXPECT_EQ(Told(), "This could not be finished:\nno paper");
    EXPECT_FALSE(button->isDown());
}

TEST_F(Failures, OfAControlEndThere) {
    owl::GadgetBar bar(window);
    QComboBox* box = bar.AddComboBox(kMessage, "Fail");
    box->addItems({"one", "two"});
    user.AnswersMessage(owl::kIdOk);
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(Told(), "This could not be finished:\nno message");
}

TEST_F(Failures, OfAKeyEndThereAndTheNextKeyIsHeard) {
    window.Create();
    user.AnswersMessage(owl::kIdOk).AnswersMessage(owl::kIdOk);
    QTest::keyClick(&window, Qt::Key_A);
    QTest::keyClick(&window, Qt::Key_A);
    EXPECT_EQ(user.Messages().size(), 2u);
}

TEST_F(Failures, OfTheFocusEndThere) {
    user.AnswersMessage(owl::kIdOk);
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(Told(), "This could not be finished:\nno focus");
    window.Destroy();
}

TEST_F(Failures, LeaveTheCommandOfTheProgram) {
    EXPECT_THROW(window.RunCommand(kCommand), std::runtime_error);
}

} // namespace
