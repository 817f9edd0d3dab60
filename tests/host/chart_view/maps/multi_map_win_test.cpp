// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/multi_map_win.h"

#include "host/toolkit/table_window.h"
#include "tests/host/chart_view/maps/maps_view.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QSlider>
#include <QSplitter>
#include <QTableView>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace {

using orvanta::chart::HeadView;
using orvanta::chart::MapFit;
using orvanta::chart::ValueRange;
using orvanta::test::FakeGlobalWindow;
using orvanta::test::FormUser;
using orvanta::test::MapsView;
using orvanta::test::ScriptedUser;
using testing::ElementsAre;

constexpr unsigned kGrid = 14160;
constexpr unsigned kElectrodes = 14141;
constexpr unsigned kLock = 14150;
constexpr unsigned kNames = 14161;
constexpr unsigned kValues = 14162;
constexpr unsigned kSinglePalette = 14163;
constexpr unsigned kValuesTable = 14164;
constexpr unsigned kTransparency = 16329;
constexpr WPARAM kTwoByThree = 3U | 2U << 16U; ///< columns in the lower half

class MapArray : public testing::Test {
protected:
    FakeGlobalWindow window;
};

TEST_F(MapArray, MakesItsMapsWhenItIsSetUp) {
    MapsView view(window);
    EXPECT_EQ(view.GetNumMaps(), 0);
    view.Create();
    EXPECT_EQ(view.GetNumMaps(), 8);
    EXPECT_EQ(view.GetLayoutCount(), 4);
    EXPECT_THAT(view.made, ElementsAre(0, 1, 2, 3, 4, 5, 6, 7));
    EXPECT_EQ(view.GetMap(7)->GetIndex(), 7);
    EXPECT_EQ(view.GetMap(8), nullptr);
}

TEST_F(MapArray, LaysItsMapsOutAndShowsThem) {
    window.platform.user.values = {{"Maps/MapRows", 1}, {"Maps/MapColumns", 2}};
    MapsView view(window);
    view.ShowAt(400, 200);
    EXPECT_EQ(view.GetMap(0)->geometry(), QRect(0, 0, 200, 200));
    EXPECT_EQ(view.GetMap(1)->geometry(), QRect(200, 0, 200, 200));
    EXPECT_TRUE(view.GetMap(1)->isVisible());
}

TEST_F(MapArray, MakesRoomForItsTitle) {
    window.platform.user.values = {{"Maps/MapRows", 1}, {"Maps/MapColumns", 1}};
    MapsView view(window);
    view.ShowAt(400, 200);
    view.SetTitle("Band: Alpha   Measure: Abs");
    EXPECT_EQ(view.GetTitle(), "Band: Alpha   Measure: Abs");
    EXPECT_GT(view.GetMap(0)->y(), 12);
    EXPECT_EQ(view.GetMap(0)->geometry().bottom(), 199);
    view.SetTitle("");
    EXPECT_EQ(view.GetMap(0)->y(), 0);
}

TEST_F(MapArray, WritesAllTitlesInOneWay) {
    window.platform.user.values = {{"Maps/MapRows", 1}, {"Maps/MapColumns", 2}};
    MapsView view(window);
    view.SetSource(nullptr);
    view.ShowAt(800, 300);
    view.SetMap(0, "A", {1, 2, 3, 4});
    view.SetMap(1, "A band with a long name - Measure: Peak", {1, 2, 3, 4});
    view.SetMapValues(false);
    EXPECT_EQ(view.GetMap(0)->GetDisplay().fit.titles.lines, 1);
    view.ShowAt(400, 300);
    EXPECT_EQ(view.GetMap(0)->GetDisplay().fit.titles.lines, 2);
    EXPECT_EQ(view.GetMap(0)->GetDisplay().fit, view.GetMap(1)->GetDisplay().fit);
    EXPECT_TRUE(view.GetMap(0)->GetDisplay().fit.titles.whole);
}

TEST_F(MapArray, GivesAllMapsRoomForTheWidestScale) {
    window.platform.user.values = {{"Maps/MapRows", 1}, {"Maps/MapColumns", 2}};
    MapsView view(window);
    view.SetSource(nullptr);
    view.autoScale = true;
    view.ShowAt(800, 300);
    view.SetMap(0, "A", {1, 2, 3, 4});
    view.SetMap(1, "B", {1e12, 2e12, 3e12, 4e12});
    view.SetMapValues(false);
    const MapFit wide = view.GetMap(0)->GetDisplay().fit;
    EXPECT_EQ(view.GetMap(1)->GetDisplay().fit, wide);
    view.SetMap(1, "B", {1, 2, 3, 4});
    view.SetMapValues(false);
    EXPECT_LT(view.GetMap(0)->GetDisplay().fit.scale.beside.cx, wide.scale.beside.cx);
}

TEST_F(MapArray, TellsATitleThatIsCutUnderTheMouse) {
    window.platform.user.values = {{"Maps/MapRows", 1}, {"Maps/MapColumns", 8}};
    MapsView view(window);
    view.SetSource(nullptr);
    const std::string title = "A band with quite a long name - Measure: Peak F";
    view.ShowAt(480, 300);
    view.SetMap(0, title, {1, 2, 3, 4});
    view.SetMapValues(false);
    EXPECT_FALSE(view.GetMap(0)->GetDisplay().fit.titles.whole);
    QTest::mouseMove(view.GetMap(0), QPoint(5, 5));
    QApplication::processEvents();
    EXPECT_EQ(view.GetMap(0)->toolTip().toStdString(), title);
}

TEST_F(MapArray, PushesValuesTitlesUnitsAndRanges) {
    MapsView view(window);
    view.ShowAt(800, 400);
    view.SetMapValues(true);
    EXPECT_EQ(view.computed, 1);
    EXPECT_EQ(view.source.fetched, 1);
    EXPECT_EQ(view.GetMap(2)->GetTitle(), "Map 2");
    EXPECT_THAT(view.GetMap(2)->GetValues(), ElementsAre(20, 21, 22, 23));
    EXPECT_EQ(view.GetMap(2)->GetMeasureUnit(), "µV²");
    EXPECT_EQ(view.GetOverallRange(), (ValueRange{0, 73}));
    EXPECT_EQ(view.GetMap(5)->GetScale(), (ValueRange{0, 73}));
}

TEST_F(MapArray, RefreshesWithoutComputingWhenNothingIsToBeFetched) {
    MapsView view(window);
    view.Create();
    view.SetMapValues(false);
    EXPECT_EQ(view.computed, 0);
    EXPECT_EQ(view.GetMap(0)->GetTitle(), "Map 0");
}

TEST_F(MapArray, TakesMapsInUseIntoItsRangeOnly) {
    MapsView view(window);
    view.Create();
    view.SetMapsInUse(2);
    view.SetMap(0, "A", {5, 6});
    view.SetMap(1, "B", {std::numeric_limits<double>::quiet_NaN(), 9});
    view.SetMap(2, "---", {-100});
    EXPECT_EQ(view.GetOverallRange(), (ValueRange{5, 9}));
}

TEST_F(MapArray, HasNoRangeWithoutValues) {
    MapsView view(window);
    view.Create();
    EXPECT_EQ(view.GetOverallRange(), std::nullopt);
}

TEST_F(MapArray, MakesAnewWhatIsMissingOnly) {
    MapsView view(window);
    view.ShowAt(800, 400);
    TMapWindow* const kept = view.GetMap(0);
    view.ResetWindows(1, 3);
    EXPECT_EQ(view.GetNumMaps(), 3);
    EXPECT_EQ(view.GetLayoutCount(), 3);
    view.made.clear();
    view.ResetWindows(2, 2);
    EXPECT_THAT(view.made, ElementsAre(3));
    EXPECT_EQ(view.GetMap(0), kept);
    EXPECT_TRUE(view.GetMap(3)->isVisible());
    EXPECT_EQ(view.GetMap(3)->geometry(), QRect(400, 200, 400, 200));
}

TEST_F(MapArray, AnswersThePickedGrid) {
    MapsView view(window);
    view.ShowAt(800, 400);
    view.SendMessage(kGrid, kTwoByThree);
    EXPECT_EQ(view.GetNumMaps(), 6);
    EXPECT_EQ(view.GetLayoutCount(), 3);
}

TEST_F(MapArray, ClampsAGridThatIsTooLarge) {
    MapsView view(window);
    view.ShowAt(800, 400);
    view.ResetWindows(0, 100);
    EXPECT_EQ(view.GetNumMaps(), 8);
    EXPECT_EQ(view.GetLayoutCount(), 8);
}

TEST_F(MapArray, ShowsTheFirstDrawingUntilItIsCleared) {
    MapsView view(window);
    EXPECT_TRUE(view.IsFirstDraw());
    view.ClearFirstDraw();
    EXPECT_FALSE(view.IsFirstDraw());
}

TEST_F(MapArray, HidesItsMapsUntilTheyAreShown) {
    MapsView view(window);
    view.ShowAt(800, 400);
    view.ShowMaps(false);
    EXPECT_FALSE(view.GetMap(0)->isVisible());
    view.ResetWindows(3, 3);
    view.resize(500, 300);
    EXPECT_FALSE(view.GetMap(8)->isVisible());
    view.ShowMaps(true);
    EXPECT_TRUE(view.GetMap(8)->isVisible());
}

TEST_F(MapArray, TurnsOthersAlongOnlyWhileLocked) {
    MapsView view(window, true);
    view.ShowAt(800, 400);
    EXPECT_FALSE(view.IsLocked());
    view.GetMap(1)->SetView({30, 20});
    view.SendMessage(TMapWindow::kTurned, 1);
    EXPECT_EQ(view.GetMap(0)->GetView(), (HeadView{180, 90}));
    view.RunCommand(kLock);
    EXPECT_TRUE(view.IsLocked());
    view.GetMap(1)->SetView({30, 20});
    view.SendMessage(TMapWindow::kTurned, 1);
    EXPECT_EQ(view.GetMap(0)->GetView(), (HeadView{30, 20}));
    EXPECT_EQ(view.GetMap(7)->GetView(), (HeadView{30, 20}));
}

TEST_F(MapArray, TurnsEveryMapToASide) {
    MapsView view(window, true);
    view.ShowAt(800, 400);
    struct Side {
        unsigned command;
        HeadView view;
    };
    for (const Side& side : {Side{14101, {0, 0}}, Side{14102, {270, 0}}, Side{14103, {90, 0}},
                             Side{14104, {180, 0}}, Side{14100, {180, 90}}}) {
        EXPECT_TRUE(view.RunCommand(side.command));
        EXPECT_EQ(view.GetMap(0)->GetView(), side.view) << side.command;
        EXPECT_EQ(view.GetMap(7)->GetView(), side.view) << side.command;
    }
}

TEST_F(MapArray, PassesTransparencyToItsMaps) {
    MapsView view(window, true);
    view.ShowAt(800, 400);
    view.SendMessage(kTransparency, 35);
    EXPECT_EQ(view.GetMap(3)->GetDisplay().opacity, 35);
    view.SendMessage(kTransparency, 1000);
    EXPECT_EQ(view.GetMap(3)->GetDisplay().opacity, 100);
}

TEST_F(MapArray, GivesTheSliderItsTransparency) {
    window.platform.user.values = {{"Maps/MapOpacity", 40}};
    MapsView view(window, true);
    view.Create();
    QSlider slider;
    slider.setRange(0, 100);
    view.SetTransparencySlider(&slider);
    EXPECT_EQ(slider.value(), 40);
}

TEST_F(MapArray, TurnsElectrodesOffAndOn) {
    MapsView view(window);
    view.ShowAt(800, 400);
    EXPECT_TRUE(view.AreElectrodesShown());
    view.RunCommand(kElectrodes);
    EXPECT_FALSE(view.AreElectrodesShown());
    EXPECT_FALSE(view.GetMap(0)->GetDisplay().electrodes);
    view.RunCommand(kElectrodes);
    EXPECT_TRUE(view.GetMap(0)->GetDisplay().electrodes);
}

TEST_F(MapArray, CopiesOneRowForEachMapInUse) {
    const orvanta::test::FakeServices services;
    window.platform.user.values = {{"Maps/MapRows", 1}, {"Maps/MapColumns", 3}};
    MapsView view(window, false, 2);
    view.Create();
    view.SetMapValues(true);
    view.SetMapsInUse(2);
    view.CmCopy2ClpBrd();
    EXPECT_THAT(services.clipboard.Texts(),
                ElementsAre("Item\tFp1\tFpz\r\nMap 0\t0.000\t1.000\r\nMap 1\t10.000\t11.000\r\n"));
}

TEST_F(MapArray, HasOneBarForAllMapsOnceTheirScalesAgree) {
    MapsView view(window);
    view.ShowAt(800, 400);
    view.SetMapValues(true);
    const int width = view.GetMap(3)->geometry().right();
    EXPECT_TRUE(view.GetMap(0)->GetDisplay().ownScale);
    view.SetSinglePalette(true);
    EXPECT_TRUE(view.IsSinglePalette());
    EXPECT_FALSE(view.GetMap(0)->GetDisplay().ownScale);
    EXPECT_LT(view.GetMap(3)->geometry().right(), width - 20);
    view.SetSinglePalette(false);
    EXPECT_TRUE(view.GetMap(0)->GetDisplay().ownScale);
    EXPECT_EQ(view.GetMap(3)->geometry().right(), width);
}

TEST_F(MapArray, GivesMapsWithScalesOfTheirOwnOneScale) {
    MapsView view(window);
    view.ShowAt(800, 400);
    view.autoScale = true;
    view.valueOf = [](std::uint64_t, std::size_t map, std::size_t) {
        return 10.0 * static_cast<double>(map + 1);
    };
    view.SetMapValues(true);
    EXPECT_EQ(view.GetMap(7)->GetScale(), (ValueRange{80, 80}));
    view.SetSinglePalette(true);
    EXPECT_EQ(view.GetMap(7)->GetScale(), (ValueRange{10, 80}));
    EXPECT_EQ(view.GetMap(0)->GetScale(), (ValueRange{10, 80}));
    view.SetSinglePalette(false);
    EXPECT_EQ(view.GetMap(7)->GetScale(), (ValueRange{80, 80}));
}

TEST_F(MapArray, KeepsABarInEachMapWhileUnitsDiffer) {
    MapsView view(window);
    view.ShowAt(800, 400);
    view.whileUpdating = [&] { view.SetMapUnit(1, "Hz"); };
    view.SetMapValues(true);
    view.SetSinglePalette(true);
    EXPECT_TRUE(view.GetMap(0)->GetDisplay().ownScale);
}

TEST_F(MapArray, KeepsTheKeysOfTheView) {
    MapsView view(window);
    view.ShowAt(800, 400);
    EXPECT_EQ(view.GetMap(0)->focusPolicy(), Qt::NoFocus);
}

TEST_F(MapArray, RemembersWhatTheUserChose) {
    {
        MapsView view(window, true);
        view.ShowAt(800, 400);
        view.RunCommand(kLock);
        view.RunCommand(kElectrodes);
        view.SendMessage(kTransparency, 60);
        view.SendMessage(kGrid, kTwoByThree);
        view.Destroy();
    }
    MapsView again(window, true);
    again.Create();
    EXPECT_TRUE(again.IsLocked());
    EXPECT_FALSE(again.AreElectrodesShown());
    EXPECT_EQ(again.GetDisplay().opacity, 60);
    EXPECT_EQ(again.GetNumMaps(), 6);
}

TEST_F(MapArray, LivesThroughEverySize) {
    MapsView view(window, true);
    view.ShowAt(800, 400);
    view.SetTitle("Title");
    view.SetMapValues(true);
    view.SetSinglePalette(true);
    for (const QSize& size : {QSize(1, 1), QSize(0, 0), QSize(2000, 3), QSize(3, 2000), QSize(640, 400)}) {
        view.Panes().resize(size);
        view.resize(size);
        view.Invalidate();
        QApplication::processEvents();
    }
    EXPECT_TRUE(view.GetMap(0)->isVisible());
}

TEST_F(MapArray, TakesAnotherPalette) {
    ScriptedUser user;
    user.MeetsDialog([](QDialog& dialog) {
        FormUser(dialog).SelectsRow("lstPalettes", 4);
        dialog.accept();
    });
    MapsView view(window);
    view.ShowAt(800, 400);
    view.RunCommand(14081);
    EXPECT_EQ(view.GetMap(7)->GetDisplay().palette, "turbo");
    view.Destroy();
    EXPECT_EQ(window.platform.texts["Maps/MapPalette"], "turbo");
}

TEST_F(MapArray, KeepsItsPaletteWhenTheUserCancels) {
    ScriptedUser user;
    user.MeetsDialog([](QDialog& dialog) { dialog.reject(); });
    MapsView view(window);
    view.ShowAt(800, 400);
    view.RunCommand(14081);
    EXPECT_EQ(view.GetMap(7)->GetDisplay().palette, "viridis");
}

TEST_F(MapArray, TakesAnotherFont) {
    ScriptedUser user;
    user.ChoosesFont(owl::TFont{"DejaVu Serif", 30, false, false});
    MapsView view(window);
    view.ShowAt(800, 400);
    view.SetTitle("Title");
    const int top = view.GetMap(0)->y();
    view.RunCommand(14144);
    EXPECT_EQ(view.GetMap(0)->GetDisplay().font.height, 30);
    EXPECT_GT(view.GetMap(0)->y(), top);
}

/// The menu that a right click opens.
owl::TMenu& MenuOf(MapsView& view) {
    QContextMenuEvent click(QContextMenuEvent::Mouse, {10, 10}, view.mapToGlobal(QPoint(10, 10)));
    QApplication::sendEvent(view.GetMap(0), &click);
    return dynamic_cast<owl::TMenu&>(*QApplication::activePopupWidget());
}

TEST_F(MapArray, OffersItsCommandsAtARightClick) {
    MapsView view(window, true);
    view.ShowAt(800, 400);
    owl::TMenu& menu = MenuOf(view);
    EXPECT_TRUE(menu.isVisible());
    EXPECT_TRUE(menu.Item(kElectrodes)->isChecked());
    EXPECT_FALSE(menu.Item(kLock)->isChecked());
    EXPECT_NE(menu.Item(14104), nullptr);
    menu.Item(kElectrodes)->trigger();
    EXPECT_FALSE(view.AreElectrodesShown());
    menu.close();
}

TEST_F(MapArray, OffersFlatMapsNothingThatIsForHeads) {
    MapsView view(window);
    view.ShowAt(800, 400);
    owl::TMenu& menu = MenuOf(view);
    EXPECT_NE(menu.Item(kGrid), nullptr);
    EXPECT_EQ(menu.Item(kLock), nullptr);
    EXPECT_EQ(menu.Item(14100), nullptr);
    EXPECT_EQ(menu.actions().first(), menu.Item(kGrid)) << "these maps have nothing else to choose";
    menu.close();
}

TEST_F(MapArray, OpensThePickerOfItsGrid) {
    MapsView view(window);
    view.ShowAt(800, 400);
    view.RunCommand(kGrid);
    auto* picker = dynamic_cast<TTableWnd*>(QApplication::activePopupWidget());
    ASSERT_NE(picker, nullptr);
    QTest::keyClick(picker, Qt::Key_Right);
    QTest::keyClick(picker, Qt::Key_Right);
    QTest::keyClick(picker, Qt::Key_Down);
    QTest::keyClick(picker, Qt::Key_Return);
    EXPECT_EQ(view.GetNumMaps(), 6);
    EXPECT_EQ(view.GetLayoutCount(), 3);
}

TEST_F(MapArray, ShowsNamesAndValuesOnDemand) {
    MapsView view(window);
    view.ShowAt(800, 400);
    view.RunCommand(kNames);
    view.RunCommand(kValues);
    EXPECT_TRUE(view.GetMap(0)->GetDisplay().names);
    EXPECT_TRUE(view.GetMap(0)->GetDisplay().values);
}

TEST_F(MapArray, ShowsATableOfItsValues) {
    MapsView view(window);
    view.ShowAt(800, 400);
    view.SetMapValues(true);
    EXPECT_FALSE(view.IsTableShown());
    view.RunCommand(kValuesTable);
    EXPECT_TRUE(view.IsTableShown());
    QApplication::processEvents();
    const auto* table = view.Panes().findChild<QTableView*>("mapValues");
    const QAbstractItemModel& model = *table->model();
    EXPECT_EQ(model.rowCount(), 4);
    EXPECT_EQ(model.columnCount(), 8);
    EXPECT_EQ(model.headerData(3, Qt::Horizontal).toString(), "Map 3");
    EXPECT_EQ(model.headerData(1, Qt::Vertical).toString(), "Fpz");
    EXPECT_EQ(model.index(1, 3).data().toString(), "31.000");
    EXPECT_GT(view.width(), 300); // the maps keep their room
    view.valueOf = [](std::uint64_t, std::size_t, std::size_t) { return 0.25; };
    view.SetMapValues(true);
    EXPECT_EQ(model.index(1, 3).data().toString(), "0.250");
    view.RunCommand(kValuesTable);
    EXPECT_FALSE(view.IsTableShown());
}

TEST_F(MapArray, CopiesWhatIsSelectedInItsTable) {
    const orvanta::test::FakeServices services;
    MapsView view(window);
    view.ShowAt(800, 400);
    view.SetMapValues(true);
    view.RunCommand(kValuesTable);
    auto* table = view.Panes().findChild<QTableView*>("mapValues");
    QTest::keySequence(table, QKeySequence::Copy);
    EXPECT_TRUE(services.clipboard.Texts().empty());
    table->selectionModel()->select(QItemSelection(table->model()->index(0, 1), table->model()->index(1, 2)),
                                    QItemSelectionModel::Select);
    QTest::keySequence(table, QKeySequence::Copy);
    EXPECT_THAT(services.clipboard.Texts(),
                ElementsAre("\tMap 1\tMap 2\r\nFp1\t10.000\t20.000\r\nFpz\t11.000\t21.000\r\n"));
}

TEST_F(MapArray, RemembersItsTable) {
    {
        MapsView view(window);
        view.ShowAt(800, 400);
        view.RunCommand(kValuesTable);
        view.Destroy();
    }
    MapsView again(window);
    again.ShowAt(800, 400);
    EXPECT_TRUE(again.IsTableShown());
}

TEST_F(MapArray, RemembersTheUsersPaletteAndNotTheCartoons) {
    MapsView view(window);
    view.ShowAt(800, 400);
    view.SetSinglePalette(true); // as the cartoon does
    view.Destroy();
    EXPECT_EQ(window.platform.user.values["Maps/MapSinglePalette"], 0);
}

TEST_F(MapArray, HasTheUsersOneScaleAgainAfterTheCartoons) {
    window.platform.user.values["Maps/MapSinglePalette"] = 1;
    MapsView view(window);
    view.ShowAt(800, 400);
    view.SetSinglePalette(true); // as the cartoon does
    view.SetSinglePalette(false);
    EXPECT_TRUE(view.IsSinglePalette());
    view.RunCommand(kSinglePalette);
    EXPECT_FALSE(view.IsSinglePalette());
}

TEST_F(MapArray, TakesOneScaleOnDemand) {
    MapsView view(window);
    view.ShowAt(800, 400);
    view.RunCommand(kSinglePalette);
    EXPECT_TRUE(view.IsSinglePalette());
    view.Destroy();
    EXPECT_EQ(window.platform.user.values["Maps/MapSinglePalette"], 1);
}

} // namespace
