// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/electrode_hull.h"

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
