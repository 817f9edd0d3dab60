// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/map_raster.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::chart;

const std::vector<HeadPosition> kCross = {{1, 0, 0}, {-1, 0, 0}, {0, 1, 0}, {0, -1, 0}};

TEST(OnHead, PutsTheMiddleAtTheVertex) {
    EXPECT_EQ(OnHead({0, 0}), (HeadPosition{0, 0, 1}));
}

TEST(OnHead, PutsTheNoseInFrontAndTheRightEarToTheRight) {
    const HeadPosition nose = OnHead({0, -1});
    EXPECT_NEAR(nose.y, 1, 1e-12);
    EXPECT_NEAR(nose.z, 0, 1e-12);
    const HeadPosition ear = OnHead({1, 0});
    EXPECT_NEAR(ear.x, 1, 1e-12);
}

TEST(OnHead, IsTheInverseOfTheProjection) {
    for (const Place place : {Place{0.3, -0.4}, Place{-0.9, 0.1}, Place{0.8, 1.0}}) {
        const Place back = Projected(OnHead(place));
        EXPECT_NEAR(back.x, place.x, 1e-12);
        EXPECT_NEAR(back.y, place.y, 1e-12);
    }
}

TEST(MapRaster, LeavesOutTheCorners) {
    const MapRaster raster(4, 1);
    EXPECT_EQ(raster.Pixels(), (std::vector<std::uint32_t>{1, 2, 4, 5, 6, 7, 8, 9, 10, 11, 13, 14}));
}

TEST(MapRaster, StandsOnTheMiddlesOfPixels) {
    const MapRaster raster(4, 1);
    EXPECT_EQ(raster.Places().front(), (Place{-0.25, -0.75}));
    EXPECT_EQ(raster.PlaceOf(3, 0), (Place{0.75, -0.75}));
}

TEST(MapRaster, ReachesBeyondTheHead) {
    EXPECT_EQ(MapRaster(4, 1.2).PlaceOf(3, 0), (Place{0.75 * 1.2, -0.75 * 1.2}));
}

TEST(ReachOf, IsTheHeadForElectrodesOnIt) {
    EXPECT_EQ(ReachOf(std::vector<HeadPosition>{{0, 0, 1}, {0.6, 0, 0.8}}), 1);
}

TEST(ReachOf, GrowsToTheLowestElectrode) {
    // 112.5° from the vertex, so at 1.25 radii.
    EXPECT_NEAR(ReachOf(std::vector<HeadPosition>{{0.9239, 0, -0.3827}}), 1.31, 1e-3);
}

TEST(ReachOf, EndsBelowTheEars) {
    EXPECT_EQ(ReachOf(std::vector<HeadPosition>{{0.1, 0, -1}}), 1.35);
}

TEST(BeyondElectrodes, TellsWhatTheyEnclose) {
    const std::vector<Place> places = {{0, 0}, {0.49, 0.49}, {0.6, 0.6}, {0.9, -0.9}, {1, 0}};
    EXPECT_EQ(BeyondElectrodes(places, kCross, 0.01), (std::vector<bool>{false, false, true, true, false}));
}

TEST(BeyondElectrodes, LeavesAMarginAroundThem) {
    // The square's side passes at 0.5 * sqrt(2) from the middle; the place at 0.6 * sqrt(2).
    EXPECT_EQ(BeyondElectrodes(std::vector<Place>{{0.6, 0.6}}, kCross, 0.15), std::vector<bool>{false});
    EXPECT_EQ(BeyondElectrodes(std::vector<Place>{{0.6, 0.6}}, kCross, 0.13), std::vector<bool>{true});
}

TEST(BeyondElectrodes, IsEverywhereForFewerThanThree) {
    EXPECT_EQ(
        BeyondElectrodes(std::vector<Place>{{0, 0}}, std::vector<HeadPosition>{{1, 0, 0}, {-1, 0, 0}}, 1),
        std::vector<bool>{true});
}

TEST(BeyondElectrodes, IsEverywhereForThoseInALine) {
    EXPECT_EQ(BeyondElectrodes(std::vector<Place>{{0, 0}},
                               std::vector<HeadPosition>{{1, 0, 0}, {0, 0, 1}, {-1, 0, 0}}, 1),
              std::vector<bool>{true});
}

} // namespace
