// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/map_window.h"

#include "tests/host/chart_view/maps/map_case.h"

#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace orvanta::chart;
using namespace orvanta::test;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

QPoint At(const owl::TPoint& point) {
    return {point.x, point.y};
}

void Move(TMapWindow& map, const QPointF& to, Qt::MouseButtons down) {
    QMouseEvent move(QEvent::MouseMove, to, map.mapToGlobal(to), Qt::NoButton, down, {});
    QApplication::sendEvent(&map, &move);
}

void Drag(TMapWindow& map, const QPoint& from, const QPoint& to) {
    QTest::mousePress(&map, Qt::LeftButton, {}, from);
    for (const double share : {0.5, 1.0}) {
        Move(map, QPointF(from) + QPointF(to - from) * share, Qt::LeftButton);
    }
    QTest::mouseRelease(&map, Qt::LeftButton, {}, to);
}

TEST(MapWindow, NamesItsSectionAfterViewAndIndex) {
    MapCase map(TwentyOneElectrodes(), false);
    EXPECT_EQ(map.Map().GetSection(), "Test_Map_3");
    EXPECT_EQ(map.Map().GetIndex(), 3);
    EXPECT_FALSE(map.Map().IsThreeD());
}

TEST(MapWindow, TakesPaletteElectrodesAndContoursFromItsMaker) {
    const TMapWindow map(nullptr, nullptr, TwentyOneElectrodes(), false, true, 4, "Test", 0, 9);
    EXPECT_EQ(map.GetDisplay().palette, "turbo");
    EXPECT_FALSE(map.GetDisplay().electrodes);
    EXPECT_EQ(map.GetDisplay().contours, 9);
    EXPECT_TRUE(map.IsThreeD());
}

TEST(MapWindow, TakesTheFirstPaletteForANumberWithoutOne) {
    for (const int number : {-1, 6, 1000}) {
        const TMapWindow map(nullptr, nullptr, {}, true, false, number, "Test", 0, 6);
        EXPECT_EQ(map.GetDisplay().palette, "viridis");
    }
}

TEST(MapWindow, PassesOverValuesWithoutAnElectrode) {
    MapCase map(ElectrodesNamed({"Cz", "Pz"}), false);
    map.Map().SetValues({1, 2, 3}, "Alpha", true);
    EXPECT_THAT(map.Map().GetValues(), ElementsAre(1, 2));
    EXPECT_EQ(map.Map().GetTitle(), "Alpha");
}

struct RangeCase {
    double low, high;
    bool autoScale, zeroMin;
    ValueRange scale;
};

class MapRange : public testing::TestWithParam<RangeCase> {};

TEST_P(MapRange, IsTheScaleOfValuesFrom2To8) {
    MapCase map(ElectrodesNamed({"Cz", "Pz", "Oz", "xyz"}), false);
    map.SetValues({2, kNaN, 8, 100}); // "xyz" has no place on the head
    const RangeCase& range = GetParam();
    map.Map().SetRange(range.low, range.high, range.autoScale, range.zeroMin);
    EXPECT_EQ(map.Map().GetScale(), range.scale);
}

INSTANTIATE_TEST_SUITE_P(
    Ranges, MapRange,
    testing::Values(RangeCase{1, 5, false, false, {1, 5}}, RangeCase{1, 5, false, true, {0, 5}},
                    RangeCase{1, 5, true, false, {2, 8}}, RangeCase{1, 5, true, true, {0, 8}},
                    RangeCase{0, 5, true, false, {0, 8}}, RangeCase{9, 5, false, false, {9, 9}},
                    RangeCase{kNaN, 5, false, false, {0, 0}}));

TEST(MapWindow, KeepsTheRangeWhereNoValueIsKnown) {
    MapCase map(ElectrodesNamed({"Cz", "Pz"}), false);
    map.SetValues({kNaN, kNaN});
    map.Map().SetRange(1, 5, true, false);
    EXPECT_EQ(map.Map().GetScale(), (ValueRange{1, 5}));
}

TEST(MapWindow, FindsTheElectrodeAtAPoint) {
    MapCase map(TwentyOneElectrodes(), false);
    map.SetValues(std::vector<double>(21, 1));
    const owl::TPoint cz = map.PlaceOf("Cz");
    const owl::TPoint c4 = map.PlaceOf("C4");
    EXPECT_EQ(cz.y, c4.y);
    EXPECT_GT(c4.x, cz.x + 20);
    EXPECT_EQ(map.Map().ElectrodeAt({1, 1}), std::nullopt);
}

TEST(MapWindow, TellsTheParentOfAClickOnAnElectrode) {
    MapCase map(ElectrodesNamed({"Fz", "Cz", "Pz", "C3", "C4"}), false);
    map.SetValues({1, 2, 3, 4, 5});
    QTest::mouseClick(&map.Map(), Qt::LeftButton, {}, At(map.PlaceOf("Pz")));
    QTest::mouseClick(&map.Map(), Qt::LeftButton, {}, QPoint(1, 1));
    EXPECT_THAT(map.Parent().told, ElementsAre(MapParent::Told{TMapWindow::kElectrodeClicked, 3, 2}));
}

TEST(MapWindow, SaysNameValueAndUnitOfTheElectrodeUnderTheMouse) {
    MapCase map(ElectrodesNamed({"Fz", "Cz", "Pz", "C3", "C4"}), false);
    map.Map().SetMeasureUnit("µV²");
    map.SetValues({1, 2, 33.25, kNaN, 5});
    QTest::mouseMove(&map.Map(), At(map.PlaceOf("Pz")));
    EXPECT_EQ(map.Map().toolTip().toStdString(), "Pz: 33.2 µV²");
    EXPECT_EQ(map.Map().cursor().shape(), Qt::PointingHandCursor);
    QTest::mouseMove(&map.Map(), At(map.PlaceOf("C3")));
    EXPECT_EQ(map.Map().toolTip().toStdString(), "C3: n/a");
    QTest::mouseMove(&map.Map(), QPoint(1, 1));
    EXPECT_EQ(map.Map().toolTip().toStdString(), "");
    EXPECT_EQ(map.Map().cursor().shape(), Qt::ArrowCursor);
}

TEST(MapWindow, TellsScreenReadersItsTitleAndScale) {
    MapCase map(ElectrodesNamed({"Cz", "Pz"}), false);
    map.Map().SetMeasureUnit("Hz");
    map.Map().SetValues({2, 8}, "Peak frequency", true);
    map.Map().SetRange(1, 9, true, false);
    EXPECT_EQ(map.Map().accessibleName().toStdString(), "Peak frequency");
    EXPECT_EQ(map.Map().accessibleDescription().toStdString(), "2.00 – 8.00 Hz");
    map.SetValues({kNaN, kNaN});
    EXPECT_EQ(map.Map().accessibleDescription().toStdString(), "No values");
}

TEST(MapWindow, IsPaleWhenDisabled) {
    MapCase map(TwentyOneElectrodes(), false);
    map.SetField([](const HeadPosition& p) { return p.x; });
    const QImage enabled = map.Picture();
    map.Map().setEnabled(false);
    QApplication::processEvents();
    const QImage disabled = map.Map().grab().toImage();
    const owl::TPoint between = map.PlaceOf("C3");
    const QColor ground = map.Map().palette().color(QPalette::Window);
    const auto distance = [&](const QImage& image) {
        return std::abs(image.pixelColor(between.x + 8, between.y).lightness() - ground.lightness());
    };
    EXPECT_LT(distance(disabled), distance(enabled));
}

TEST(TurnedHead, FollowsTheMouseAndTellsTheParent) {
    MapCase map(TwentyOneElectrodes(), true, 200, 200);
    map.Map().SetView(kFrontView);
    Drag(map.Map(), {50, 100}, {100, 100});
    // Half a turn across the window: 50 of 200 pixels are 45°.
    EXPECT_NEAR(map.Map().GetView().azimuth, 45, 1e-9);
    EXPECT_EQ(map.Map().GetView().elevation, 0);
    EXPECT_THAT(map.Parent().told, ElementsAre(MapParent::Told{TMapWindow::kTurned, 3, 0}));
}

TEST(TurnedHead, IsDrawnFinerAfterTheDrag) {
    MapCase map(TwentyOneElectrodes(), true, 200, 200);
    map.SetField([](const HeadPosition& p) { return p.x; });
    Drag(map.Map(), {50, 100}, {100, 100});
    const QImage afterDrag = map.Picture();
    const HeadView view = map.Map().GetView();
    map.Map().SetView(kTopView);
    map.Picture();
    map.Map().SetView(view);
    EXPECT_EQ(map.Picture(), afterDrag);
    QTest::mousePress(&map.Map(), Qt::LeftButton, {}, QPoint(50, 100));
    Move(map.Map(), {60, 100}, Qt::LeftButton);
    Move(map.Map(), {50, 100}, Qt::LeftButton);
    EXPECT_NE(map.Picture(), afterDrag); // the same view, coarser
    QTest::mouseRelease(&map.Map(), Qt::LeftButton, {}, QPoint(50, 100));
    EXPECT_EQ(map.Picture(), afterDrag);
}

TEST(TurnedHead, DoesNotTurnByAClick) {
    MapCase map(TwentyOneElectrodes(), true, 200, 200);
    map.SetValues(std::vector<double>(21, 1));
    map.Map().SetView(kTopView);
    QTest::mouseClick(&map.Map(), Qt::LeftButton, {}, At(map.PlaceOf("Cz")));
    EXPECT_EQ(map.Map().GetView(), kTopView);
    ASSERT_EQ(map.Parent().told.size(), 1U);
    EXPECT_EQ(map.Parent().told[0].message, TMapWindow::kElectrodeClicked);
}

TEST(TurnedHead, EndsADragWhoseReleaseWentAstray) {
    MapCase map(TwentyOneElectrodes(), true, 200, 200);
    map.Map().SetView(kFrontView);
    QTest::mousePress(&map.Map(), Qt::LeftButton, {}, QPoint(50, 100));
    Move(map.Map(), {100, 100}, Qt::LeftButton);
    Move(map.Map(), {150, 100}, Qt::NoButton);
    EXPECT_NEAR(map.Map().GetView().azimuth, 45, 1e-9);
    EXPECT_THAT(map.Parent().told, ElementsAre(MapParent::Told{TMapWindow::kTurned, 3, 0}));
    QTest::mouseRelease(&map.Map(), Qt::LeftButton, {}, QPoint(150, 100));
    EXPECT_EQ(map.Parent().told.size(), 1U);
}

TEST(FlatMapWindow, DoesNotTurn) {
    MapCase map(TwentyOneElectrodes(), false, 200, 200);
    const HeadView before = map.Map().GetView();
    map.Map().SetView(kLeftView);
    Drag(map.Map(), {50, 100}, {100, 100});
    EXPECT_EQ(map.Map().GetView(), before);
    EXPECT_THAT(map.Parent().told, IsEmpty());
}

TEST(HeadWindow, LeavesOutElectrodesBehind) {
    MapCase map(TwentyOneElectrodes(), true, 300, 300);
    map.SetValues(std::vector<double>(21, 1));
    map.Map().SetView(kLeftView);
    EXPECT_TRUE(map.Shows("C3"));
    EXPECT_FALSE(map.Shows("C4"));
    map.Map().SetView(kRightView);
    EXPECT_FALSE(map.Shows("C3"));
    EXPECT_TRUE(map.Shows("C4"));
    map.Map().SetView(kBackView);
    EXPECT_TRUE(map.Shows("Pz"));
    EXPECT_FALSE(map.Shows("Fz"));
}

TEST(HeadWindow, FadesWithItsOpacity) {
    MapCase map(TwentyOneElectrodes(), true, 300, 300);
    map.SetField([](const HeadPosition& p) { return p.x; });
    map.ChangeDisplay([](MapDisplay& display) { display.electrodes = false; });
    const owl::TPoint cz = map.PlaceOf("Cz");
    const QRgb opaque = map.Picture().pixel(cz.x, cz.y);
    map.ChangeDisplay([](MapDisplay& display) { display.opacity = 0; });
    const QRgb gone = map.Picture().pixel(cz.x, cz.y);
    EXPECT_EQ(gone, map.Map().palette().color(QPalette::Window).rgb());
    map.ChangeDisplay([](MapDisplay& display) { display.opacity = 50; });
    const QRgb half = map.Picture().pixel(cz.x, cz.y);
    EXPECT_NE(half, gone);
    EXPECT_NE(half, opaque);
}

} // namespace
