// SPDX-License-Identifier: GPL-3.0-or-later
// Keyboard, mouse and wheel in the panel, although the view takes the focus back after each choice.
#include "tests/side_bar/panel_fixture.h"
#include "tests/side_bar/settings_case.h"
#include "tests/support/qt/scripted_user.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>
#include <QWheelEvent>
#include <gmock/gmock.h>

namespace {

using namespace orvanta;
using testing::IsEmpty;

class KeysInThePanel : public test::PanelFixture {
protected:
    KeysInThePanel() {
        for (SpectMacroResult*& analysis : analyses) {
            analysis = &Add();
        }
    }

    QTreeWidget& List(const char* name) { return Get<QTreeWidget>(name); }
    /// Gives the list the focus, then presses the key.
    void PressesIn(const char* list, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        List(list).setFocus(Qt::TabFocusReason);
        QTest::keyClick(&List(list), key, modifiers);
    }
    void ClicksBelowTheRowsOf(const char* list) {
        QTest::mouseClick(List(list).viewport(), Qt::LeftButton, {},
                          List(list).viewport()->rect().bottomLeft() + QPoint(5, -2));
    }
    bool ViewHasFocus() const { return window.focusWidget() == view; }

    test::ScriptedUser user;
    SpectMacroResult* analyses[4] = {};
};

TEST_F(KeysInThePanel, ArrowsGoOnFromTheMainOne) {
    manager.SetMain(analyses[3]);
    Open();
    PressesIn("lvMainList", Qt::Key_Up);
    EXPECT_EQ(manager.GetMain(), analyses[2]);
    EXPECT_TRUE(ViewHasFocus());
    panel->SomethingChanged();
    PressesIn("lvMainList", Qt::Key_Up);
    EXPECT_EQ(manager.GetMain(), analyses[1]);
    PressesIn("lvMainList", Qt::Key_End);
    EXPECT_EQ(manager.GetMain(), analyses[3]);
}

TEST_F(KeysInThePanel, ArrowsGoOnFromTheSecondaryOne) {
    manager.SetSecondary(analyses[3]);
    Open();
    PressesIn("lvSecondaryList", Qt::Key_Up);
    EXPECT_EQ(manager.GetSecondary(), analyses[2]);
    EXPECT_TRUE(ViewHasFocus());
}

TEST_F(KeysInThePanel, SpaceComparesWithTheFirstAndWithControlLeavesIt) {
    Open();
    PressesIn("lvSecondaryList", Qt::Key_Space);
    EXPECT_EQ(manager.GetSecondary(), analyses[1]);
    PressesIn("lvSecondaryList", Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(manager.GetSecondary(), nullptr);
    EXPECT_THAT(User().SelectedRowsOf("lvSecondaryList"), IsEmpty());
}

TEST_F(KeysInThePanel, AClickBelowTheRowsLeavesNoSecondary) {
    manager.SetSecondary(analyses[1]);
    Open();
    EXPECT_EQ(DrawsOf([this] { ClicksBelowTheRowsOf("lvSecondaryList"); }), std::vector{true});
    EXPECT_EQ(manager.GetSecondary(), nullptr);
    EXPECT_THAT(User().SelectedRowsOf("lvSecondaryList"), IsEmpty());
    EXPECT_TRUE(ViewHasFocus());
}

TEST_F(KeysInThePanel, AClickBelowTheRowsSelectsNoMainOneButLeavesItShown) {
    Open();
    ClicksBelowTheRowsOf("lvMainList");
    EXPECT_EQ(manager.GetMain(), analyses[0]);
    EXPECT_THAT(User().SelectedRowsOf("lvMainList"), IsEmpty());
    EXPECT_FALSE(User().IsEnabled("BtnEdit"));
    EXPECT_THAT(User().RowsOf("lvSecondaryList"), IsEmpty());
    panel->SomethingChanged();
    EXPECT_EQ(User().SelectedRowsOf("lvMainList").size(), 1);
    EXPECT_TRUE(User().IsEnabled("BtnEdit"));
}

TEST_F(KeysInThePanel, TheThresholdKeepsTheFocusWhileItIsTyped) {
    const test::NumeralsOf english(QLocale::English);
    Open();
    auto& box = Get<QComboBox>("cbThreshold");
    box.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(box.lineEdit(), "0.02"); // in place of what is selected
    EXPECT_EQ(box.currentText(), "0.02");
    EXPECT_EQ(window.focusWidget(), &box);
    EXPECT_EQ(manager.GetPThreshold(), 0.02);
}

TEST_F(KeysInThePanel, EnterAndEscapeEndNothing) {
    Open();
    QWidget* const controls[] = {&Get<QComboBox>("cbThreshold"), &List("lvMainList"),
                                 &List("lvSecondaryList"), &Get<QWidget>("ebSpectrumMemo"),
                                 &Get<QWidget>("cbSpectRatio")};
    for (QWidget* control : controls) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
            control->setFocus(Qt::TabFocusReason);
            QTest::keyClick(control, key);
            RunQueue();
            EXPECT_TRUE(panel->isVisible() && window.isVisible()) << control->objectName().toStdString();
        }
    }
    EXPECT_EQ(user.DialogsShown(), 0);
    EXPECT_THAT(user.Messages(), IsEmpty());
    EXPECT_EQ(manager.Size(), 4u);
    EXPECT_EQ(manager.GetMain(), analyses[0]);
    EXPECT_EQ(manager.GetPThreshold(), 0.05);
}

TEST_F(KeysInThePanel, BothListsAreSeenWhereThereIsNoRoomForAll) {
    Open();
    const auto& settings = Get<QWidget>("ebSpectrumMemo");
    EXPECT_TRUE(settings.isVisible());
    const int roomy = List("lvSecondaryList").height();
    window.resize(900, 290);
    RunQueue();
    EXPECT_FALSE(settings.isVisible());
    for (const char* name : {"lvMainList", "lvSecondaryList"}) {
        const QTreeWidget& list = List(name);
        EXPECT_LT(list.height(), roomy) << name;
        EXPECT_GE(list.visibleRegion().boundingRect().height(), 40) << name << ", a row at the least";
    }
    window.resize(900, 800);
    RunQueue();
    EXPECT_TRUE(settings.isVisible());
}

TEST_F(KeysInThePanel, TabGoesFromTheTopToTheBottom) {
    Open();
    List("lvMainList").setFocus(Qt::TabFocusReason);
    QStringList visited;
    for (int i = 0; i < 11; ++i) {
        visited << window.focusWidget()->objectName();
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(visited, (QStringList{"lvMainList", "ebSpectrumMemo", "BtnSpectraNew", "BtnEdit",
                                    "BtnEraseSpectra", "BtnExport", "BtnErpProcess", "lvSecondaryList",
                                    "cbStat", "cbSpectRatio", "cbThreshold"}));
}

TEST_F(KeysInThePanel, TheWheelScrollsPastAThresholdThatIsNotInUse) {
    Open();
    auto& box = Get<QComboBox>("cbThreshold");
    const auto wheel = [&box] {
        QWheelEvent event(QPointF(5, 5), box.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&box, &event);
    };
    view->setFocus();
    wheel();
    EXPECT_EQ(box.currentText(), "0.05");
    box.setFocus();
    wheel();
    EXPECT_EQ(box.currentText(), "0.01");
}

} // namespace
