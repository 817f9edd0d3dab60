// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/page_control.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTest>
#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TabLines, PutTabsSideBySideWhileTheyFit) {
    const QSize tabs[] = {{60, 20}, {40, 24}};
    EXPECT_THAT(owl::TabLines(tabs, 100), ElementsAre(QRect(0, 0, 60, 24), QRect(60, 0, 40, 24)));
}

TEST(TabLines, StartANewLineForATabThatDoesNotFit) {
    const QSize tabs[] = {{60, 24}, {41, 24}, {30, 24}, {80, 24}};
    EXPECT_THAT(owl::TabLines(tabs, 100), ElementsAre(QRect(0, 0, 60, 24), QRect(0, 24, 41, 24),
                                                      QRect(41, 24, 30, 24), QRect(0, 48, 80, 24)));
}

TEST(TabLines, CutATabThatIsWiderThanALine) {
    const QSize tabs[] = {{130, 24}, {20, 24}};
    EXPECT_THAT(owl::TabLines(tabs, 100), ElementsAre(QRect(0, 0, 100, 24), QRect(0, 24, 20, 24)));
}

TEST(TabLines, AreNoneWithoutTabs) {
    EXPECT_THAT(owl::TabLines({}, 100), IsEmpty());
}

class Pages : public testing::Test {
protected:
    QAbstractButton& Tab(int index) { return *control.findChildren<QAbstractButton*>().at(index); }

    owl::TPageControl control;
};

TEST_F(Pages, StartWithNone) {
    EXPECT_EQ(control.GetPageCount(), 0);
    control.SetActivePage(0);
    EXPECT_EQ(control.GetPageCount(), 0);
}

TEST_F(Pages, ShowTheFirstUntilTheTabOfAnotherIsClicked) {
    owl::TTabSheet& first = control.AddPage("One");
    owl::TTabSheet& second = control.AddPage("Two");
    control.show();
    EXPECT_TRUE(first.isVisible());
    EXPECT_TRUE(Tab(0).isChecked());
    QTest::mouseClick(&Tab(1), Qt::LeftButton);
    EXPECT_TRUE(second.isVisible());
    EXPECT_FALSE(first.isVisible());
    control.SetActivePage(0);
    EXPECT_TRUE(first.isVisible());
    EXPECT_TRUE(Tab(0).isChecked());
    EXPECT_FALSE(Tab(1).isChecked());
}

TEST_F(Pages, AreChangedWithTheArrowKeys) {
    control.AddPage("One");
    const owl::TTabSheet& second = control.AddPage("Two");
    control.show();
    control.activateWindow();
    QApplication::processEvents();
    Tab(0).setFocus();
    ASSERT_TRUE(Tab(0).hasFocus());
    QTest::keyClick(&Tab(0), Qt::Key_Right);
    EXPECT_TRUE(second.isVisible());
}

TEST_F(Pages, GoWithTheirTabs) {
    const auto* first = &control.AddPage("One");
    const owl::TTabSheet& second = control.AddPage("Two");
    const owl::TTabSheet& third = control.AddPage("Three");
    control.show();
    delete first;
    EXPECT_EQ(control.GetPageCount(), 2);
    EXPECT_EQ(Tab(0).text(), "Two");
    EXPECT_EQ(Tab(0).isChecked(), second.isVisible());
    EXPECT_EQ(Tab(1).isChecked(), third.isVisible());
    EXPECT_NE(second.isVisible(), third.isVisible());
    Tab(1).click(); // still knows its page
    EXPECT_TRUE(third.isVisible());
}

TEST_F(Pages, AreFilledByWhatTheyTake) {
    owl::TTabSheet& page = control.AddPage("One");
    auto* content = new QLabel("content");
    page.Take(*content);
    control.resize(200, 100);
    control.show();
    EXPECT_EQ(content->parent(), &page);
    EXPECT_TRUE(content->isVisible());
    EXPECT_EQ(content->size(), page.size());
}

TEST_F(Pages, StandBelowAsManyLinesOfTabsAsItTakes) {
    const owl::TTabSheet& first = control.AddPage("A long caption");
    control.AddPage("Another long caption");
    control.AddPage("A third long caption");
    control.resize(2000, 300);
    control.show();
    const int line = Tab(0).height();
    const int oneLine = first.height();
    EXPECT_EQ(Tab(2).y(), 0);
    control.resize(Tab(1).width() + 1, 300);
    EXPECT_EQ(Tab(2).geometry().topLeft(), QPoint(0, 2 * line));
    EXPECT_EQ(first.height(), oneLine - 2 * line);
}

} // namespace
