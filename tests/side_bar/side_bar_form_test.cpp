// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/side_bar_form.h"

#include "host/toolkit/form.h"
#include "host/toolkit/page_control.h"
#include "side_bar/form_flag_listener.h"
#include "tests/support/qt/scripted_user.h"

#include <QAbstractButton>
#include <gtest/gtest.h>

namespace {

using namespace orvanta;

/// Counts what it is told.
class Panel final : public TFormListener {
public:
    explicit Panel(const QString& caption) : TFormListener(nullptr) { setWindowTitle(caption); }
    void SomethingChanged() override { ++told; }
    int told = 0;
};

QStringList CaptionsOf(const TSideBarFormBase& sideBar) {
    QStringList captions;
    for (const auto* tab : sideBar.findChildren<QAbstractButton*>()) {
        captions << tab->text();
    }
    return captions;
}

TEST(SideBar, HasATabForEachPanelInTheOrderOfTheCalls) {
    TSideBarFormBase sideBar(HWND(nullptr));
    EXPECT_EQ(sideBar.GetPageCount(), 0);
    sideBar.AddPage(new Panel("t-test"));
    sideBar.AddPage(new Panel("BCI"));
    EXPECT_EQ(sideBar.GetPageCount(), 2);
    EXPECT_EQ(CaptionsOf(sideBar), (QStringList{"t-test", "BCI"}));
}

TEST(SideBar, ShowsTheFirstPanelUntilAnotherTabIsActivated) {
    TSideBarFormBase sideBar(HWND(nullptr));
    auto* first = new Panel("t-test");
    auto* second = new Panel("BCI");
    sideBar.AddPage(first);
    sideBar.AddPage(second);
    sideBar.show();
    EXPECT_TRUE(first->isVisible());
    EXPECT_FALSE(second->isVisible());
    sideBar.SetActivePage(1);
    EXPECT_FALSE(first->isVisible());
    EXPECT_TRUE(second->isVisible());
    sideBar.SetActivePage(2);
    EXPECT_TRUE(second->isVisible());
}

TEST(SideBar, RemovesThePageButNotThePanel) {
    TSideBarFormBase sideBar(HWND(nullptr));
    Panel panel("t-test");
    sideBar.AddPage(&panel);
    auto* other = new Panel("BCI");
    sideBar.AddPage(other);
    sideBar.show();
    sideBar.RemovePage(&panel);
    EXPECT_EQ(sideBar.GetPageCount(), 1);
    EXPECT_EQ(panel.parent(), nullptr);
    EXPECT_EQ(CaptionsOf(sideBar), QStringList{"BCI"});
    EXPECT_TRUE(other->isVisible());
}

TEST(SideBar, LeavesAPanelAloneThatItNeverGot) {
    TSideBarFormBase sideBar(HWND(nullptr));
    sideBar.AddPage(new Panel("t-test"));
    Panel orphan("a");
    sideBar.RemovePage(&orphan);
    QWidget elsewhere;
    auto* housed = new Panel("b");
    housed->setParent(&elsewhere);
    sideBar.RemovePage(housed);
    EXPECT_EQ(sideBar.GetPageCount(), 1);
    EXPECT_EQ(housed->parent(), &elsewhere);
}

TEST(SideBar, KeepsTheViewThatHostsIt) {
    QWidget view;
    const TSideBarFormBase hosted{HWND(&view)};
    EXPECT_EQ(hosted.GetParentWindow(), HWND(&view));
    EXPECT_EQ(hosted.parent(), &view);
    owl::TForm form(nullptr);
    const TSideBarFormBase owned(&form);
    EXPECT_EQ(owned.GetParentWindow(), HWND());
    EXPECT_EQ(owned.parent(), &form);
}

TEST(SideBar, IsToldOfChangesAsItsPanelsAre) {
    Panel panel("t-test");
    TSideBarFormBase sideBar(HWND(nullptr));
    for (TChangeListener* listener : std::initializer_list<TChangeListener*>{&sideBar, &panel}) {
        listener->SomethingChanged();
    }
    EXPECT_EQ(panel.told, 1);
}

TEST(SideBar, OffersPanelsTheColourChooser) {
    TSideBarFormBase sideBar(HWND(nullptr));
    sideBar.cdChnColor = 0x00112233;
    test::ScriptedUser user;
    user.ChoosesColor(0x00445566).ChoosesColor(std::nullopt);
    EXPECT_TRUE(sideBar.ExecuteChnColor());
    EXPECT_EQ(sideBar.cdChnColor, 0x00445566u);
    EXPECT_FALSE(sideBar.ExecuteChnColor());
    EXPECT_EQ(sideBar.cdChnColor, 0x00445566u);
    EXPECT_EQ(user.ColorsOffered(), (std::vector<owl::TColor>{0x00112233, 0x00445566}));
}

TEST(FlagOfAPanel, TellsThePanelEachTimeItIsSet) {
    ManagedFlag flag;
    Panel panel("t-test");
    const FormFlagListener byPointer(&panel, "first", &flag);
    EXPECT_EQ(byPointer.GetListenerName(), "first");
    flag.Set();
    EXPECT_EQ(panel.told, 1);
    {
        const FormFlagListener byReference(&panel, "second", flag);
        flag.Set();
        EXPECT_EQ(panel.told, 3);
    }
    flag.Set();
    EXPECT_EQ(panel.told, 4);
}

TEST(FlagOfAPanel, AssignsMemberByMember) {
    ManagedFlag flag;
    ManagedFlag other;
    Panel panel("t-test");
    Panel second("BCI");
    FormFlagListener listener(&panel, "first", flag);
    const FormFlagListener source(&second, "second", other);
    listener = source;
    EXPECT_EQ(listener.GetListenerName(), "second");
    flag.Set();
    EXPECT_EQ(panel.told, 0);
    other.Set();
    EXPECT_EQ(second.told, 2);
    listener = FormFlagListener(&panel, "third", flag);
    flag.Set();
    EXPECT_EQ(panel.told, 1);
}

} // namespace
