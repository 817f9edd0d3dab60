// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/command_enabler.h"

#include "host/toolkit/idle_enablers.h"
#include "host/toolkit/response_table.h"
#include "tests/support/qt/idle.h"

#include <QAction>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

constexpr unsigned kChecksOnly = 1;
constexpr unsigned kEnablesOnly = 2;
constexpr unsigned kNamesOnly = 3;
constexpr unsigned kTouchesNothing = 4;
constexpr unsigned kWithoutEnabler = 5;

class View : public owl::TEventHandler {
public:
    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

    bool state = true;
    int runs = 0;

private:
    static const owl::TResponseTable __entries; // NOLINT(bugprone-reserved-identifier)

    void CeChecks(owl::TCommandEnabler& enabler) { enabler.SetCheck(state); }
    void CeEnables(owl::TCommandEnabler& enabler) {
        ++runs;
        enabler.Enable(state);
    }
    void CeNames(owl::TCommandEnabler& enabler) { enabler.SetText("&Again"); }
    void CeNothing(owl::TCommandEnabler& /*enabler*/) {}
};

constinit const owl::TResponseTable View::__entries = {
    owl::CommandEnabler<&View::CeChecks>(kChecksOnly),
    owl::CommandEnabler<&View::CeEnables>(kEnablesOnly),
    owl::CommandEnabler<&View::CeNames>(kNamesOnly),
    owl::CommandEnabler<&View::CeNothing>(kTouchesNothing),
};

const owl::TResponseEntry* View::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<owl::TEventHandler>(__entries, *this, key);
}

/// Enabled, checked and text of a menu item after the enabler ran.
struct Item {
    bool enabled, checked;
    QString text;
    bool operator==(const Item&) const = default;
};

Item After(unsigned id, bool state, const Item& before) {
    View view;
    view.state = state;
    QAction action(before.text);
    action.setEnabled(before.enabled);
    action.setCheckable(true);
    action.setChecked(before.checked);
    owl::RunEnabler(view, id, action);
    return {action.isEnabled(), action.isChecked(), action.text()};
}

TEST(CommandEnabler, RemembersOnlyWhatWasSaid) {
    owl::TCommandEnabler enabler(14426);
    EXPECT_EQ(enabler.GetId(), 14426U);
    EXPECT_FALSE(enabler.Enabled() || enabler.Checked() || enabler.Text());
    enabler.Enable(false);
    EXPECT_EQ(enabler.Enabled(), false);
    EXPECT_FALSE(enabler.Checked() || enabler.Text());
}

TEST(CommandEnabler, ThatChecksLeavesTheEnabledState) {
    EXPECT_EQ(After(kChecksOnly, true, {false, false, "x"}), (Item{false, true, "x"}));
    EXPECT_EQ(After(kChecksOnly, false, {true, true, "x"}), (Item{true, false, "x"}));
}

TEST(CommandEnabler, ThatEnablesLeavesTheCheckMark) {
    EXPECT_EQ(After(kEnablesOnly, false, {true, true, "x"}), (Item{false, true, "x"}));
    EXPECT_EQ(After(kEnablesOnly, true, {false, false, "x"}), (Item{true, false, "x"}));
}

TEST(CommandEnabler, ThatNamesLeavesTheRest) {
    EXPECT_EQ(After(kNamesOnly, true, {false, true, "x"}), (Item{false, true, "&Again"}));
}

TEST(CommandEnabler, ThatSaysNothingLeavesEverything) {
    EXPECT_EQ(After(kTouchesNothing, true, {false, true, "x"}), (Item{false, true, "x"}));
}

TEST(CommandEnabler, IsNotMissedByACommandWithoutOne) {
    EXPECT_EQ(After(kWithoutEnabler, true, {false, true, "x"}), (Item{false, true, "x"}));
}

TEST(CommandEnabler, WorksOnAButton) {
    View view;
    QToolButton button;
    owl::RunEnabler(view, kChecksOnly, button);
    EXPECT_TRUE(button.isChecked());
    view.state = false;
    owl::RunEnabler(view, kEnablesOnly, button);
    EXPECT_FALSE(button.isEnabled());
    EXPECT_TRUE(button.isChecked());
}

TEST(IdleEnablers, RunWhenNothingIsLeftToDo) {
    View view;
    view.state = false;
    QToolButton button;
    owl::IdleEnablers idle(view);
    idle.Add(kEnablesOnly, button);
    EXPECT_EQ(view.runs, 0);
    orvanta::test::WaitUntilIdle();
    EXPECT_FALSE(button.isEnabled());
    view.state = true;
    orvanta::test::WaitUntilIdle();
    EXPECT_TRUE(button.isEnabled());
}

TEST(IdleEnablers, ForgetAButtonThatIsGone) {
    View view;
    owl::IdleEnablers idle(view);
    {
        QToolButton button;
        idle.Add(kEnablesOnly, button);
    }
    orvanta::test::WaitUntilIdle();
    EXPECT_EQ(view.runs, 0);
}

} // namespace
