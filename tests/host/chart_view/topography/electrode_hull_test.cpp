// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/electrode_hull.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

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

TEST(MapEdge, IsTheHeadForElectrodesOnIt) {
    const MapEdge edge(std::vector<HeadPosition>{{0, 0, 1}, {0.6, 0, 0.8}});
    EXPECT_EQ(edge.At(0), 1);
    EXPECT_EQ(edge.At(2), 1);
}

TEST(MapEdge, BulgesAroundALowElectrode) {
    // 112.5° from the vertex, so at 1.25 radii, and some more.
    const MapEdge edge(std::vector<HeadPosition>{{0.9239, 0, -0.3827}});
    constexpr double kRightEar = std::numbers::pi / 2;
    EXPECT_NEAR(edge.At(kRightEar), 1.31, 1e-3);
    EXPECT_NEAR(edge.At(kRightEar + 0.2), edge.At(kRightEar - 0.2), 1e-12);
    EXPECT_GT(edge.At(kRightEar + 0.2), 1.25);
    EXPECT_NEAR(edge.At(-kRightEar), 1.06, 1e-12);
}

TEST(MapEdge, IsARingAroundElectrodesOnTheEdgeOfTheHead) {
    const MapEdge edge(std::vector<HeadPosition>{{0, 1, 0}, {1, 0, 0}, {0, -1, 0}, {-1, 0, 0}});
    for (double angle = 0; angle < 6; angle += 0.5) {
        EXPECT_NEAR(edge.At(angle), 1.06, 1e-12);
    }
}

TEST(MapEdge, GoesOnAcrossTheBackOfTheHead) {
    const MapEdge edge(std::vector<HeadPosition>{{0, -0.9239, -0.3827}});
    EXPECT_NEAR(edge.At(3.1), edge.At(-3.1), 1e-6);
    EXPECT_GT(edge.At(3.1), 1.3);
}

TEST(MapEdge, EndsBelowTheEars) {
    EXPECT_EQ(MapEdge(std::vector<HeadPosition>{{0.1, 0, -1}}).At(std::numbers::pi / 2), 1.35);
}

TEST(ElectrodeHull, EnclosesWhatLiesBetweenElectrodes) {
    const ElectrodeHull hull(kCross);
    EXPECT_EQ(hull.DistanceTo({0, 0}), 0);
    EXPECT_EQ(hull.DistanceTo({0.49, 0.49}), 0);
    EXPECT_EQ(hull.DistanceTo({1, 0}), 0);
}

TEST(ElectrodeHull, TellsHowFarOutsideAPlaceLies) {
    const ElectrodeHull hull(kCross);
    // The square's side passes at 0.5 * sqrt(2) from the middle; the place lies at 0.6 * sqrt(2).
    EXPECT_NEAR(hull.DistanceTo({0.6, 0.6}), 0.1414, 1e-4);
    EXPECT_NEAR(hull.DistanceTo({0, -1.25}), 0.25, 1e-12); // from a corner
}

TEST(ElectrodeHull, IsEmptyForFewerThanThree) {
    const ElectrodeHull hull(std::vector<HeadPosition>{{1, 0, 0}, {-1, 0, 0}});
    EXPECT_TRUE(hull.IsEmpty());
    EXPECT_GT(hull.DistanceTo({0, 0}), 2);
}

TEST(ElectrodeHull, IsEmptyForElectrodesInALine) {
    EXPECT_TRUE(ElectrodeHull(std::vector<HeadPosition>{{1, 0, 0}, {0, 0, 1}, {-1, 0, 0}}).IsEmpty());
}

TEST(ElectrodeHull, IsEmptyForElectrodesAtOnePlace) {
    EXPECT_TRUE(ElectrodeHull(std::vector<HeadPosition>(5, {0.6, 0, 0.8})).IsEmpty());
}

} // namespace
