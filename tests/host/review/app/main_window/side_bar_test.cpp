// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/side_bar.h"

#include <QMainWindow>
#include <QTabWidget>
#include <gtest/gtest.h>

namespace {

using orvanta::review::SideBar;

class Panels : public testing::Test {
protected:
    Panels() {
        window.addDockWidget(Qt::RightDockWidgetArea, &bar);
        first.setWindowTitle("First");
        second.setWindowTitle("Second");
        window.show();
    }
    void Add(QWidget& panel, bool show = true, bool activate = false) {
        bar.AddPanel(panel, show, activate);
        bar.Update();
    }
    void Remove(QWidget& panel) {
        bar.RemovePanel(panel);
        bar.Update();
    }
    QStringList Shown() const {
        const auto* tabs = bar.findChild<QTabWidget*>();
        QStringList titles;
        for (int i = 0; i < tabs->count(); ++i) {
            if (tabs->isTabVisible(i)) {
                titles << tabs->tabText(i);
            }
        }
        return titles;
    }

    QWidget first, second;
    QMainWindow window;
    SideBar bar;
};

TEST_F(Panels, AreHiddenUntilThereIsOne) {
    EXPECT_FALSE(bar.isVisible());
    Add(first);
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(Shown(), QStringList({"First"}));
    Remove(first);
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(Panels, StandBehindEachOther) {
    Add(first);
    Add(second);
    EXPECT_EQ(Shown(), QStringList({"First", "Second"}));
    EXPECT_TRUE(first.isVisible());
    EXPECT_FALSE(second.isVisible());
}

TEST_F(Panels, ComeToTheFrontWhenActivated) {
    Add(first);
    Add(second, true, true);
    EXPECT_TRUE(second.isVisible());
    Add(first, true, true);
    EXPECT_TRUE(first.isVisible());
    EXPECT_EQ(Shown(), QStringList({"First", "Second"}));
}

TEST_F(Panels, CanBeAddedWithoutBeingShown) {
    Add(first, false);
    EXPECT_FALSE(bar.isVisible());
    Add(first, true, true);
    EXPECT_TRUE(first.isVisible());
}

TEST_F(Panels, BelongToNobodyOnceTheyAreRemoved) {
    Add(first);
    Remove(first);
    EXPECT_EQ(first.parentWidget(), nullptr);
    EXPECT_FALSE(first.isVisible());
    Remove(second);
    EXPECT_EQ(Shown(), QStringList());
}

TEST_F(Panels, KeepAPlaceThatTheyHaveElsewhere) {
    QWidget view;
    auto* inView = new QWidget(&view);
    Add(*inView, true, true);
    EXPECT_EQ(inView->parentWidget(), &view);
    EXPECT_FALSE(bar.isVisible());
    Remove(*inView);
    EXPECT_EQ(inView->parentWidget(), &view);
}

TEST_F(Panels, OutliveTheBar) {
    auto other = std::make_unique<SideBar>();
    other->AddPanel(first, true, true);
    other.reset();
    EXPECT_EQ(first.parentWidget(), nullptr);
}

} // namespace
