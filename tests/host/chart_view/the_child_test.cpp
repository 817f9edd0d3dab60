// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/the_child.h"

#include "host/toolkit/menu_templates.h"
#include "tests/support/qt/fake_global_window.h"
#include "tests/support/qt/recording_dc.h"
#include "tests/support/qt/scripted_user.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QSplitter>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace {

using orvanta::test::FakeGlobalWindow;
using orvanta::test::ScriptedUser;
using testing::ElementsAre;

constexpr unsigned kMenu = 60002;
constexpr unsigned kCommand = 31;
constexpr owl::MenuItem kItems[] = {{kCommand, "Do it"}};

/// A view that writes down what the base does with it.
class View : public TheChild {
public:
    explicit View(GlobalWindow& window, const char* name = "View")
        : TheChild(window, name, nullptr, {kCommand, 0, kMenu, 0, 0}) {}

    using TheChild::CheckMenu;
    using TheChild::ChooseChildFont;
    using TheChild::CopyStringToClipboard;
    using TheChild::MyAlphaBlend;
    using TheChild::PressToolBtn;
    using TheChild::ReadChildDouble;
    using TheChild::ReadChildInt;
    using TheChild::SetMessageBar;
    using TheChild::WriteChildDouble;
    using TheChild::WriteChildInt;

    void CmDo() { steps.emplace_back("command"); }
    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

    std::vector<std::string> steps;

protected:
    static const owl::TResponseTable __entries; // NOLINT(bugprone-reserved-identifier)

    void SetupWindow() override {
        TheChild::SetupWindow();
        steps.emplace_back("set up");
    }
    void LoadUserSettings() override {
        TheChild::LoadUserSettings();
        steps.emplace_back("settings");
    }
    void CreateGadgets() override {
        TheChild::CreateGadgets();
        steps.emplace_back("gadgets");
        SetGadget(7, GetToolBar().AddTwoStateButton(kCommand, 0, 0, "Lock"));
        SetGadget(8, GetToolBar().AddButton(kCommand, 0, "Do it"));
    }
};

constinit const owl::TResponseTable View::__entries = {owl::Command<&View::CmDo>(kCommand)};

const owl::TResponseEntry* View::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<TheChild>(__entries, *this, key);
}

class ChildWindow : public testing::Test {
protected:
    ChildWindow() { owl::RegisterMenuTemplate(kMenu, kItems); }
    ~ChildWindow() override { owl::RegisterMenuTemplate(kMenu, {}); }

    static void ShowInside(FakeGlobalWindow& window, const View& view) {
        window.resize(300, 200);
        view.Panes().resize(300, 200);
        window.show();
        view.Panes().show();
        QApplication::processEvents();
    }

    FakeGlobalWindow window;
};

TEST_F(ChildWindow, HasNoSizeBeforeItIsLaidOut) {
    const View view(window);
    EXPECT_EQ(view.GetClientRect(), owl::TRect());
}

TEST_F(ChildWindow, LoadsItsSettingsThenMakesItsGadgets) {
    View view(window);
    EXPECT_TRUE(view.steps.empty());
    view.Create();
    EXPECT_THAT(view.steps, ElementsAre("settings", "gadgets", "set up"));
}

TEST_F(ChildWindow, IsTheActiveOneOnceItIsSetUpOrHasTheFocus) {
    View first(window, "First");
    EXPECT_EQ(window.GetActiveChild(), nullptr);
    EXPECT_EQ(window.GetMenu(), nullptr);
    first.Create();
    EXPECT_EQ(window.GetActiveChild(), &first);
    EXPECT_EQ(window.GetMenu(), &first.GetMenu());
    View second(window, "Second");
    second.Create();
    EXPECT_EQ(window.GetActiveChild(), &second);
    first.Dispatch({{owl::EventKind::Window, static_cast<unsigned>(owl::WindowEvent::SetFocus)},
                    owl::FocusArgs{nullptr}});
    EXPECT_EQ(window.GetActiveChild(), &first);
}

TEST_F(ChildWindow, LeavesNoActiveOneBehind) {
    auto view = std::make_unique<View>(window);
    view->Create();
    view->Destroy();
    EXPECT_EQ(window.GetActiveChild(), nullptr);
    EXPECT_TRUE(view->Panes().isHidden());
    auto other = std::make_unique<View>(window);
    other->Create();
    other.reset();
    EXPECT_EQ(window.GetActiveChild(), nullptr);
}

TEST_F(ChildWindow, OpensItsMenuAtTheMouseAndByTheMenuKey) {
    View view(window);
    ShowInside(window, view);
    for (const auto reason : {QContextMenuEvent::Mouse, QContextMenuEvent::Keyboard}) {
        QContextMenuEvent asked(reason, {40, 30}, view.mapToGlobal(QPoint(40, 30)));
        QApplication::sendEvent(&view, &asked);
        EXPECT_EQ(QApplication::activePopupWidget(), &view.GetMenu());
        view.GetMenu().close();
    }
}

TEST_F(ChildWindow, HasAMenuThatRunsItsCommands) {
    View view(window);
    view.Create();
    view.steps.clear();
    ASSERT_NE(view.GetMenu().Item(kCommand), nullptr);
    view.GetMenu().Item(kCommand)->trigger();
    EXPECT_THAT(view.steps, ElementsAre("command"));
    view.CheckMenu(kCommand, true);
    EXPECT_TRUE(view.GetMenu().Item(kCommand)->isChecked());
}

TEST_F(ChildWindow, HasAToolBarThatRunsItsCommands) {
    View view(window);
    view.Create();
    view.steps.clear();
    static_cast<QToolButton*>(view.GetGadget(8))->click();
    EXPECT_THAT(view.steps, ElementsAre("command"));
}

TEST_F(ChildWindow, ShowsNoToolBarOfItsOwn) {
    const View view(window);
    ShowInside(window, view);
    EXPECT_TRUE(view.GetToolBar().isHidden());
}

TEST_F(ChildWindow, PressesButtonsOfTwoStatesByTheirKey) {
    View view(window);
    view.Create();
    view.PressToolBtn(7, true);
    EXPECT_TRUE(static_cast<owl::TwoStateButton*>(view.GetGadget(7))->isChecked());
    view.PressToolBtn(7, false);
    EXPECT_FALSE(static_cast<owl::TwoStateButton*>(view.GetGadget(7))->isChecked());
    view.PressToolBtn(8, true); // a plain button
    view.PressToolBtn(9, true); // none
    EXPECT_FALSE(static_cast<QToolButton*>(view.GetGadget(8))->isChecked());
    EXPECT_EQ(view.GetGadget(9), nullptr);
}

TEST_F(ChildWindow, FillsItsSplitterAndMakesRoomForWhatStandsBeside) {
    const View view(window);
    ShowInside(window, view);
    EXPECT_EQ(view.GetClientRect(), (owl::TRect{0, 0, 300, 200}));
    auto* beside = new QWidget;
    view.Panes().insertWidget(0, beside);
    view.Panes().setSizes({100, 200});
    QApplication::processEvents();
    EXPECT_LT(view.GetClientRect().Width(), 210);
    delete beside;
    QApplication::processEvents();
    EXPECT_EQ(view.GetClientRect(), (owl::TRect{0, 0, 300, 200}));
}

TEST_F(ChildWindow, EndsWithItsSplitterOrTheSplitterWithIt) {
    const QPointer<View> view(new View(window));
    const QPointer<QSplitter> panes(&view->Panes());
    delete panes.data();
    EXPECT_TRUE(view.isNull());
    const QPointer<View> other(new View(window));
    const QPointer<QSplitter> otherPanes(&other->Panes());
    const QPointer<owl::GadgetBar> toolBar(&other->GetToolBar());
    delete other.data();
    EXPECT_TRUE(toolBar.isNull());
    EXPECT_TRUE(otherPanes.isNull());
}

TEST_F(ChildWindow, KeepsItsSettingsInASectionOfItsName) {
    const View view(window, "SpectMap");
    EXPECT_EQ(view.ReadChildInt("Rows", 4), 4);
    EXPECT_EQ(view.ReadChildDouble("Low", 0.5), 0.5);
    view.WriteChildInt("Rows", 7);
    view.WriteChildDouble("Low", 1.25);
    EXPECT_EQ(window.platform.user.values.at("SpectMap/Rows"), 7);
    EXPECT_EQ(view.ReadChildInt("Rows", 4), 7);
    EXPECT_EQ(view.ReadChildDouble("Low", 0.5), 1.25);
}

TEST_F(ChildWindow, RemembersTheChosenFont) {
    const owl::TFont font{"Arial", 17, true, false};
    {
        View view(window);
        view.Create();
        EXPECT_EQ(view.GetViewFont(), owl::TFont());
        ScriptedUser user;
        user.ChoosesFont(font);
        EXPECT_TRUE(view.ChooseChildFont());
        EXPECT_THAT(user.FontsOffered(), ElementsAre(owl::TFont()));
        EXPECT_EQ(view.GetViewFont(), font);
    }
    View next(window);
    next.Create();
    EXPECT_EQ(next.GetViewFont(), font);
}

TEST_F(ChildWindow, HasAReadableFontWhateverHeightIsStored) {
    const std::pair<double, int> heights[] = {{-14, 14}, {0, owl::TFont().height}, {1e9, 1000}, {-1e9, 1000}};
    for (const auto& [stored, height] : heights) {
        window.platform.user.values["View/FontHeight"] = stored;
        View view(window);
        view.Create();
        EXPECT_EQ(view.GetViewFont().height, height) << stored;
    }
}

TEST_F(ChildWindow, KeepsItsFontWhenNoneIsChosen) {
    View view(window);
    view.Create();
    ScriptedUser user;
    user.ChoosesFont(std::nullopt);
    EXPECT_FALSE(view.ChooseChildFont());
    EXPECT_EQ(view.GetViewFont(), owl::TFont());
    EXPECT_TRUE(window.platform.user.written.empty());
}

TEST_F(ChildWindow, WritesToTheMessageBar) {
    const View view(window);
    view.SetMessageBar("Analyzed");
    EXPECT_THAT(window.messages, ElementsAre("Analyzed"));
}

TEST_F(ChildWindow, BlendsAColourOverARectangle) {
    orvanta::test::RecordingDC dc;
    View::MyAlphaBlend(dc, {1, 2, 30, 40}, owl::Rgb(1, 2, 3), 128);
    EXPECT_THAT(dc.Calls(), ElementsAre("blend 1,2,30,40 #010203 128"));
}

} // namespace
