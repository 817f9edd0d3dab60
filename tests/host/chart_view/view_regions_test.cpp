// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/view_regions.h"

#include "host/chart_view/head_places.h"
#include "tests/host/chart_view/electrode_sets.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace orvanta;

constexpr owl::TSize kSizes[] = {{300, 200},   {201, 333},   {640, 480},  {1366, 768},
                                 {1920, 1080}, {1080, 1920}, {3840, 2160}};

MyRect Region(const owl::TSize& size) {
    return {size.cx / 2, size.cy / 2, size.cx, size.cy};
}

ViewRegions RegionsOf(const std::vector<std::string>& names, const MyRect& region) {
    const auto recording = test::RecordingOf(names);
    return Get2DViewRegions(test::EegSensors(*recording), region);
}

owl::TPoint CentreOf(const owl::TRect& rect) {
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

/// The usual sets of electrodes in windows from small to 4K.
class RegionsOfASet : public testing::TestWithParam<std::size_t> {
protected:
    std::unique_ptr<EEGFileInfoType> recording = test::RecordingOf(test::ElectrodeSet(GetParam()));
    SensorList sensors = test::EegSensors(*recording);
};

TEST_P(RegionsOfASet, EveryElectrodeHasOne) {
    const ViewRegions regions = Get2DViewRegions(sensors, {150, 100, 300, 200});
    EXPECT_EQ(regions.size(), GetParam());
    for (const auto& [name, rect] : regions) {
        EXPECT_FALSE(rect.IsEmpty()) << name;
    }
}

TEST_P(RegionsOfASet, NoneOverlapsAnother) {
    for (const owl::TSize& size : kSizes) {
        const ViewRegions regions = Get2DViewRegions(sensors, Region(size));
        for (auto a = regions.begin(); a != regions.end(); ++a) {
            for (auto b = std::next(a); b != regions.end(); ++b) {
                ASSERT_FALSE(a->second.Touches(b->second))
                    << a->first << " and " << b->first << " at " << size.cx << " x " << size.cy;
            }
        }
    }
}

TEST_P(RegionsOfASet, AllLieInsideAndHaveOneSize) {
    for (const owl::TSize& size : kSizes) {
        const owl::TRect edges = Region(size).Edges();
        const ViewRegions regions = Get2DViewRegions(sensors, Region(size));
        for (const auto& [name, rect] : regions) {
            EXPECT_GE(rect.left, edges.left) << name;
            EXPECT_GE(rect.top, edges.top) << name;
            EXPECT_LE(rect.right, edges.right) << name;
            EXPECT_LE(rect.bottom, edges.bottom) << name;
            EXPECT_EQ(rect.Width(), regions.begin()->second.Width()) << name;
            EXPECT_EQ(rect.Height(), regions.begin()->second.Height()) << name;
        }
    }
}

TEST_P(RegionsOfASet, LeftMirrorsRight) {
    const ViewRegions regions = Get2DViewRegions(sensors, {1000, 500, 2000, 1000});
    for (const auto& [name, rect] : regions) {
        if (name.find_first_of("13579") == std::string::npos) {
            continue;
        }
        std::string other = name; // odd numbers stand left of the even ones that follow
        const std::size_t digits = other.find_first_of("0123456789");
        const int number = std::stoi(other.substr(digits));
        other.replace(digits, std::to_string(number).size(), std::to_string(number + 1));
        if (const auto mirror = regions.find(other); mirror != regions.end() && GetParam() < 128) {
            EXPECT_NEAR(rect.left + mirror->second.right, 2000, 2) << name;
            EXPECT_NEAR(rect.top, mirror->second.top, 1) << name;
        }
    }
}

TEST_P(RegionsOfASet, LieNearTheElectrodesPlacesOnTheHead) {
    const MyRect region{1000, 1000, 2000, 2000};
    const ViewRegions regions = Get2DViewRegions(sensors, region);
    const HeadOutline outline = Get2DHeadOutline(sensors, region);
    const auto [left, right] = std::minmax_element(outline.head.begin(), outline.head.end(),
                                                   [](auto& a, auto& b) { return a.x < b.x; });
    const auto [top, bottom] = std::minmax_element(outline.head.begin(), outline.head.end(),
                                                   [](auto& a, auto& b) { return a.y < b.y; });
    const double radiusX = (right->x - left->x) / 2.0;
    const double radiusY = (bottom->y - top->y) / 2.0;
    for (const SensorType* sensor : sensors) {
        const auto place = chart::Projected(sensor->GetElectInfo().Position);
        const owl::TPoint centre = CentreOf(regions.at(sensor->GetName()));
        EXPECT_NEAR(centre.x, left->x + (1 + place.x) * radiusX, 0.35 * radiusX + 2) << sensor->GetName();
        EXPECT_NEAR(centre.y, top->y + (1 + place.y) * radiusY, 0.35 * radiusY + 2) << sensor->GetName();
    }
}

INSTANTIATE_TEST_SUITE_P(Sets, RegionsOfASet, testing::Values(21, 32, 64, 128, 256));

TEST(ViewRegions, AreLargeEnoughToUseTheRoom) {
    // Share of a 16:9 window that all rectangles cover together.
    const struct {
        std::size_t electrodes;
        double share;
    } table[] = {{21, 0.75}, {32, 0.42}, {64, 0.5}, {128, 0.33}, {256, 0.38}};
    for (const auto& row : table) {
        const ViewRegions regions = RegionsOf(test::ElectrodeSet(row.electrodes), {800, 500, 1600, 1000});
        const owl::TRect& rect = regions.begin()->second;
        const double covered = static_cast<double>(rect.Width()) * rect.Height() *
                               static_cast<double>(regions.size()) / (1600.0 * 1000.0);
        EXPECT_GT(covered, row.share) << row.electrodes;
    }
}

TEST(ViewRegions, NamesAreFoundInAnyCase) {
    const ViewRegions regions = RegionsOf({"Fp1", "Cz"}, {200, 150, 400, 300});
    EXPECT_EQ(regions.count("FP1"), 1u);
    EXPECT_EQ(regions.count("cZ"), 1u);
    EXPECT_EQ(regions.at("CZ"), regions.at("Cz"));
}

TEST(ViewRegions, ANameWithoutAPositionHasNone) {
    const ViewRegions regions = RegionsOf({"Cz", "EEG 7", "F11"}, {200, 150, 400, 300});
    EXPECT_EQ(regions.size(), 1u);
    EXPECT_EQ(regions.count("EEG 7"), 0u);
}

TEST(ViewRegions, CzStandsInTheMiddleFrontAboveBackLeftBesideRight) {
    const ViewRegions regions = RegionsOf(test::ElectrodeSet(21), {500, 300, 800, 500});
    EXPECT_NEAR(CentreOf(regions.at("Cz")).x, 500, 1);
    EXPECT_LT(regions.at("Fz").top, regions.at("Cz").top);
    EXPECT_GT(regions.at("Pz").top, regions.at("Cz").top);
    EXPECT_LT(regions.at("C3").left, regions.at("Cz").left);
    EXPECT_GT(regions.at("T8").left, regions.at("C4").left);
}

TEST(ViewRegions, OldAndNewNameOfOnePlaceStandSideBySide) {
    const ViewRegions regions = RegionsOf({"T3", "T7", "Cz"}, {200, 150, 400, 300});
    ASSERT_EQ(regions.size(), 3u);
    EXPECT_FALSE(regions.at("T3").Touches(regions.at("T7")));
}

TEST(ViewRegions, EarsHaveAPlaceToo) {
    const ViewRegions regions = RegionsOf({"A1", "A2", "Cz"}, {200, 150, 400, 300});
    EXPECT_LT(regions.at("A1").right, regions.at("Cz").left);
    EXPECT_GT(regions.at("A2").left, regions.at("Cz").right);
}

TEST(ViewRegions, WithoutRoomAreEmpty) {
    for (const MyRect& region : {MyRect{0, 0, 0, 0}, MyRect{5, 5, 2, 2}, MyRect{0, 0, -10, 20}}) {
        for (const auto& [name, rect] : RegionsOf(test::ElectrodeSet(64), region)) {
            EXPECT_TRUE(rect.IsEmpty()) << name;
        }
    }
}

TEST(ViewRegions, OfNoSensorsAreNone) {
    EXPECT_TRUE(Get2DViewRegions({}, {200, 150, 400, 300}).empty());
}

TEST(ViewRegions, DoNotDependOnWhatWasAskedBefore) {
    const MyRect region{200, 150, 400, 300};
    const ViewRegions before = RegionsOf(test::ElectrodeSet(32), region);
    RegionsOf(test::ElectrodeSet(21), {50, 50, 100, 100});
    EXPECT_EQ(RegionsOf(test::ElectrodeSet(32), region), before);
}

// --- outline

class Outline : public testing::Test {
protected:
    const MyRect region{320, 240, 600, 400};
    std::unique_ptr<EEGFileInfoType> recording = test::RecordingOf(test::ElectrodeSet(64));
    HeadOutline outline = Get2DHeadOutline(test::EegSensors(*recording), region);
};

TEST_F(Outline, LiesInsideTheRegion) {
    const owl::TRect edges = region.Edges();
    for (const auto* line : {&outline.head, &outline.nose, &outline.leftEar, &outline.rightEar}) {
        ASSERT_GE(line->size(), 3u);
        for (const owl::TPoint& point : *line) {
            EXPECT_GE(point.x, edges.left);
            EXPECT_LE(point.x, edges.right);
            EXPECT_GE(point.y, edges.top);
            EXPECT_LE(point.y, edges.bottom);
        }
    }
}

TEST_F(Outline, TheHeadIsClosedAroundTheCentre) {
    EXPECT_EQ(outline.head.front(), outline.head.back());
    const auto [left, right] = std::minmax_element(outline.head.begin(), outline.head.end(),
                                                   [](auto& a, auto& b) { return a.x < b.x; });
    EXPECT_NEAR(left->x + right->x, 2 * 320, 1);
}

TEST_F(Outline, TheNosePointsUpFromTheHead) {
    const auto top = std::min_element(outline.head.begin(), outline.head.end(),
                                      [](auto& a, auto& b) { return a.y < b.y; });
    ASSERT_EQ(outline.nose.size(), 3u);
    EXPECT_EQ(outline.nose[1].x, 320);
    EXPECT_LT(outline.nose[1].y, top->y);
    EXPECT_GT(outline.nose[0].y, top->y);
    EXPECT_EQ(outline.nose[0].x + outline.nose[2].x, 2 * 320);
}

TEST_F(Outline, TheEarsStandOutAtBothSides) {
    const auto [left, right] = std::minmax_element(outline.head.begin(), outline.head.end(),
                                                   [](auto& a, auto& b) { return a.x < b.x; });
    const auto farthest = [](const auto& points) {
        return std::max_element(points.begin(), points.end(),
                                [](auto& a, auto& b) { return std::abs(a.x - 320) < std::abs(b.x - 320); })
            ->x;
    };
    EXPECT_LT(farthest(outline.leftEar), left->x);
    EXPECT_GT(farthest(outline.rightEar), right->x);
}

TEST_F(Outline, IsStretchedByNoMoreThanNineToFive) {
    const HeadOutline wide = Get2DHeadOutline(test::EegSensors(*recording), {1000, 100, 2000, 200});
    const auto [left, right] =
        std::minmax_element(wide.head.begin(), wide.head.end(), [](auto& a, auto& b) { return a.x < b.x; });
    const auto [top, bottom] =
        std::minmax_element(wide.head.begin(), wide.head.end(), [](auto& a, auto& b) { return a.y < b.y; });
    EXPECT_NEAR(static_cast<double>(right->x - left->x) / (bottom->y - top->y), 1.8, 0.03);
}

// --- positions

TEST(Projection, IsAzimuthalEquidistantWithTheNoseUp) {
    const auto expectAt = [](const HeadPosition& position, double x, double y) {
        EXPECT_NEAR(chart::Projected(position).x, x, 1e-12);
        EXPECT_NEAR(chart::Projected(position).y, y, 1e-12);
    };
    const double half = std::sqrt(0.5);
    expectAt({0, 0, 1}, 0, 0);           // Cz
    expectAt({0, 1, 0}, 0, -1);          // Fpz
    expectAt({1, 0, 0}, 1, 0);           // T8
    expectAt({-half, 0, half}, -0.5, 0); // C3, 45° from the vertex
    expectAt({0, -half, -half}, 0, 1.5); // 135°, below the equator
}

} // namespace
