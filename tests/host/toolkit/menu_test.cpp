// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/menu.h"

#include "host/toolkit/command_enabler.h"
#include "host/toolkit/response_table.h"

#include <QTest>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

constexpr unsigned kMean = 14346;
constexpr unsigned kGrid = 14357;
constexpr unsigned kCommon = 14426;
constexpr unsigned kNoSuchItem = 9999;

constexpr owl::MenuItem kItems[] = {
    {kMean, "&Mean"},
    {0, ""},
    {kGrid, "&Grid View"},
    {kCommon, "C&ommon Scale"},
};

class View : public owl::TEventHandler {
public:
    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

    std::vector<std::string> log;
    bool hasResult = true;

private:
    static const owl::TResponseTable __entries; // NOLINT(bugprone-reserved-identifier)

    void CmMean() { log.emplace_back("mean"); }
    void CmCommon() { log.emplace_back("common"); }
    void CeGrid(owl::TCommandEnabler& enabler) { enabler.Enable(hasResult); }
};

constinit const owl::TResponseTable View::__entries = {
    owl::Command<&View::CmMean>(kMean),
    owl::Command<&View::CmCommon>(kCommon),
    owl::CommandEnabler<&View::CeGrid>(kGrid),
};

const owl::TResponseEntry* View::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<owl::TEventHandler>(__entries, *this, key);
}

using Log = std::vector<std::string>;

/// A menu that a user opens with the mouse and leaves again.
void Open(owl::TMenu& menu) {
    menu.popup({10, 10});
    menu.hide();
}

std::vector<std::string> Texts(const owl::TMenu& menu) {
    std::vector<std::string> texts;
    for (const QAction* item : menu.actions()) {
        texts.push_back(item->isSeparator() ? "-" : item->text().toStdString());
    }
    return texts;
}

TEST(Menu, ListsItsTable) {
    const owl::TMenu menu(kItems);
    EXPECT_EQ(Texts(menu), (Log{"&Mean", "-", "&Grid View", "C&ommon Scale"}));
}

TEST(Menu, RunsTheCommandOfAClickedItem) {
    View view;
    owl::TMenu menu(kItems, &view);
    menu.popup({10, 10});
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(menu.Item(kCommon)).center());
    EXPECT_EQ(view.log, Log{"common"});
}

TEST(Menu, RunsTheEnablersBeforeItOpens) {
    View view;
    view.hasResult = false;
    owl::TMenu menu(kItems, &view);
    EXPECT_TRUE(menu.Item(kGrid)->isEnabled());
    Open(menu);
    EXPECT_FALSE(menu.Item(kGrid)->isEnabled());
    view.hasResult = true;
    Open(menu);
    EXPECT_TRUE(menu.Item(kGrid)->isEnabled());
}

TEST(Menu, LeavesAnItemWithoutEnablerAsItIs) {
    View view;
    owl::TMenu menu(kItems, &view);
    menu.EnableMenuItem(kMean, false);
    menu.CheckMenuItem(kMean, true);
    Open(menu);
    EXPECT_FALSE(menu.Item(kMean)->isEnabled());
    EXPECT_TRUE(menu.Item(kMean)->isChecked());
}

TEST(Menu, DoesNotChangeACheckMarkByTheClick) {
    View view;
    owl::TMenu menu(kItems, &view);
    menu.CheckMenuItem(kMean, true);
    menu.Item(kMean)->trigger();
    EXPECT_TRUE(menu.Item(kMean)->isChecked());
    EXPECT_EQ(view.log, Log{"mean"});
}

TEST(Menu, RunsNothingWithoutAHandler) {
    owl::TMenu menu(kItems);
    Open(menu);
    menu.Item(kMean)->trigger();
    EXPECT_TRUE(menu.Item(kMean)->isEnabled());
}

TEST(Menu, ChecksAndUnchecks) {
    owl::TMenu menu(kItems);
    menu.CheckMenuItem(kCommon, true);
    EXPECT_TRUE(menu.Item(kCommon)->isChecked());
    menu.CheckMenuItem(kCommon, false);
    EXPECT_FALSE(menu.Item(kCommon)->isChecked());
}

TEST(Menu, KeepsNumberAndStateOfARenamedItem) {
    View view;
    owl::TMenu menu(kItems, &view);
    menu.CheckMenuItem(kMean, true);
    menu.EnableMenuItem(kMean, false);
    menu.SetItemText(kMean, "&Mittel\xc3\xb6");
    EXPECT_EQ(menu.Item(kMean)->text(), QString::fromUtf8("&Mittel\xc3\xb6"));
    EXPECT_TRUE(menu.Item(kMean)->isChecked());
    EXPECT_FALSE(menu.Item(kMean)->isEnabled());
    menu.EnableMenuItem(kMean, true);
    menu.Item(kMean)->trigger();
    EXPECT_EQ(view.log, Log{"mean"});
}

TEST(Menu, DeletesAnItem) {
    owl::TMenu menu(kItems);
    menu.DeleteItem(kGrid);
    EXPECT_EQ(Texts(menu), (Log{"&Mean", "-", "C&ommon Scale"}));
    EXPECT_EQ(menu.Item(kGrid), nullptr);
}

TEST(Menu, AppendsItemsAndSeparators) {
    View view;
    owl::TMenu menu({}, &view);
    menu.AppendItem(kMean, "Mean");
    menu.AppendItem(0, "");
    menu.AppendItem(14456, "Amplitude");
    EXPECT_EQ(Texts(menu), (Log{"Mean", "-", "Amplitude"}));
    menu.Item(kMean)->trigger();
    EXPECT_EQ(view.log, Log{"mean"});
}

TEST(Menu, FindsItemsOfAMenuBelow) {
    owl::TMenu frame({});
    owl::TMenu below(kItems);
    frame.addMenu(&below);
    frame.SetItemText(kMean, "M");
    frame.DeleteItem(kGrid);
    EXPECT_EQ(Texts(below), (Log{"M", "-", "C&ommon Scale"}));
}

TEST(Menu, DoesNothingToAnItemItDoesNotHave) {
    owl::TMenu menu(kItems);
    const Log before = Texts(menu);
    for (const unsigned id : {kNoSuchItem, 0U}) {
        menu.CheckMenuItem(id, true);
        menu.EnableMenuItem(id, false);
        menu.SetItemText(id, "x");
        menu.DeleteItem(id);
        EXPECT_EQ(menu.Item(id), nullptr);
    }
    EXPECT_EQ(Texts(menu), before);
}

} // namespace
