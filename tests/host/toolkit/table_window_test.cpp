// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/table_window.h"

#include "host/toolkit/window.h"

#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;

constexpr unsigned kTable = 14539;

class View : public owl::TWindow {
public:
    void OpenPicker(const owl::TPoint& place, int dpi = 96) {
        picker = std::make_unique<TTableWnd>(*this, place, 10, 10, 10, 10, kTable, dpi);
        picker->show();
    }

    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

    std::unique_ptr<TTableWnd> picker;
    std::vector<std::string> answers;

private:
    static const owl::TResponseTable __entries; // NOLINT(bugprone-reserved-identifier)

    LPARAM EvTable(WPARAM wParam, LPARAM /*unused*/) {
        answers.push_back(std::to_string(wParam & 0xFFFFU) + " x " + std::to_string(wParam >> 16U));
        picker.reset();
        return 0;
    }
};

constinit const owl::TResponseTable View::__entries = {owl::Message<&View::EvTable>(kTable)};

const owl::TResponseEntry* View::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<owl::TWindow>(__entries, *this, key);
}

class TableWindow : public testing::Test {
protected:
    TableWindow() {
        view.resize(300, 200);
        view.show();
        view.OpenPicker({40, 40});
    }

    TTableWnd& Picker() { return *view.picker; }

    View view;
};

TEST_F(TableWindow, MarksFromTheUpperLeftToTheMouse) {
    QTest::mouseMove(&Picker(), Picker().CellRect(2, 1).center());
    QTest::qWait(1);
    EXPECT_EQ(Picker().Marked(), (owl::TSize{3, 2}));
    EXPECT_EQ(Picker().accessibleName(), "3 × 2");
}

TEST_F(TableWindow, AnswersAClickWithColumnsAndRows) {
    QTest::mouseClick(&Picker(), Qt::LeftButton, {}, Picker().CellRect(6, 3).center());
    EXPECT_THAT(view.answers, ElementsAre("7 x 4"));
}

TEST_F(TableWindow, AnswersTheLastCell) {
    QTest::mouseClick(&Picker(), Qt::LeftButton, {}, Picker().CellRect(9, 9).bottomRight());
    EXPECT_THAT(view.answers, ElementsAre("10 x 10"));
}

TEST_F(TableWindow, AnswersNoClickBesideTheCells) {
    QTest::mouseClick(&Picker(), Qt::LeftButton, {}, {1, 1});
    QTest::mouseClick(&Picker(), Qt::LeftButton, {}, {Picker().width() / 2, Picker().height() - 3});
    QTest::mouseClick(&Picker(), Qt::RightButton, {}, Picker().CellRect(0, 0).center());
    EXPECT_THAT(view.answers, ElementsAre());
    EXPECT_TRUE(Picker().isVisible());
}

TEST_F(TableWindow, FollowsTheArrowKeysAndAnswersEnter) {
    QTest::keyClick(&Picker(), Qt::Key_Left);
    EXPECT_EQ(Picker().Marked(), (owl::TSize{1, 1}));
    QTest::keyClick(&Picker(), Qt::Key_Right);
    QTest::keyClick(&Picker(), Qt::Key_Right);
    QTest::keyClick(&Picker(), Qt::Key_Right);
    QTest::keyClick(&Picker(), Qt::Key_Down);
    QTest::keyClick(&Picker(), Qt::Key_Down);
    QTest::keyClick(&Picker(), Qt::Key_Up);
    QTest::keyClick(&Picker(), Qt::Key_Left);
    EXPECT_EQ(Picker().Marked(), (owl::TSize{3, 2}));
    QTest::keyClick(&Picker(), Qt::Key_Return);
    EXPECT_THAT(view.answers, ElementsAre("3 x 2"));
}

TEST_F(TableWindow, StopsAtTheLastCell) {
    QTest::keyClick(&Picker(), Qt::Key_End);
    QTest::keyClick(&Picker(), Qt::Key_Right);
    QTest::keyClick(&Picker(), Qt::Key_Down);
    EXPECT_EQ(Picker().Marked(), (owl::TSize{10, 10}));
    QTest::keyClick(&Picker(), Qt::Key_Home);
    EXPECT_EQ(Picker().Marked(), (owl::TSize{1, 1}));
}

TEST_F(TableWindow, ClosesOnEscapeWithoutAnAnswer) {
    QTest::keyClick(&Picker(), Qt::Key_Escape);
    EXPECT_FALSE(Picker().isVisible());
    EXPECT_THAT(view.answers, ElementsAre());
}

TEST_F(TableWindow, StaysOnTheScreen) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(Picker().pos(), QPoint(40, 40));
    for (const QPoint& place : {screen.bottomRight(), screen.topLeft(), QPoint(-5000, -5000)}) {
        view.OpenPicker({place.x(), place.y()});
        EXPECT_TRUE(screen.contains(Picker().geometry())) << place.x() << ", " << place.y();
    }
}

TEST_F(TableWindow, HasCellsOfTheWindowsResolution) {
    EXPECT_EQ(Picker().CellRect(0, 0).size(), QSize(10, 10));
    view.OpenPicker({40, 40}, 144);
    EXPECT_EQ(Picker().CellRect(0, 0).size(), QSize(15, 15));
}

TEST_F(TableWindow, GoesWithItsWindow) {
    auto other = std::make_unique<View>();
    const QPointer<TTableWnd> left = new TTableWnd(*other, {0, 0}, 2, 2, 10, 10, kTable, 96);
    other.reset();
    EXPECT_TRUE(left.isNull());
}

} // namespace
