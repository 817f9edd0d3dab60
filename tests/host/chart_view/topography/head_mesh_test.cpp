// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/head_mesh.h"

#include <cmath>
#include <gtest/gtest.h>
#include <map>

namespace {

using namespace orvanta::chart;

HeadPosition Direction(double x, double y, double z) {
    const double length = std::hypot(x, y, z);
    return {x / length, y / length, z / length};
}

TEST(HeadRadius, IsTheSameOnBothSides) {
    for (const HeadPosition d :
         {Direction(0.9, 0.1, -0.2), Direction(0.3, 0.9, -0.1), Direction(0.4, -0.6, 0.7)}) {
        EXPECT_DOUBLE_EQ(HeadRadius(d), HeadRadius({-d.x, d.y, d.z}));
    }
}

TEST(HeadRadius, RisesToTheNose) {
    EXPECT_GT(HeadRadius(Direction(0, 0.90, -0.30)), HeadRadius(Direction(0.3, 0.86, -0.30)) + 0.1);
}

TEST(HeadRadius, RisesToTheEars) {
    EXPECT_GT(HeadRadius(Direction(1, -0.10, -0.16)), HeadRadius(Direction(0.9, 0.35, -0.16)) + 0.05);
}

TEST(HeadRadius, OfTheSkullIsLongerThanWide) {
    EXPECT_GT(HeadRadius({0, -1, 0}), HeadRadius(Direction(0.8, -0.6, 0.3)));
}

TEST(OnSurface, KeepsTheDirection) {
    const HeadPosition point = OnSurface({0, 6, 8});
    EXPECT_DOUBLE_EQ(point.x, 0);
    EXPECT_NEAR(point.y / point.z, 0.75, 1e-12);
    EXPECT_NEAR(std::hypot(point.y, point.z), HeadRadius({0, 0.6, 0.8}), 1e-12);
}

TEST(HeadMesh, HasACornerForEachRingAndSectorAndTwoPoles) {
    const HeadMesh mesh = MakeHeadMesh(10, 12);
    EXPECT_EQ(mesh.points.size(), 9U * 12 + 2);
    EXPECT_EQ(mesh.triangles.size(), 2U * 12 * 9);
}

TEST(HeadMesh, IsClosed) {
    std::map<std::pair<std::uint32_t, std::uint32_t>, int> sides;
    for (const auto& [a, b, c] : MakeHeadMesh(10, 12).triangles) {
        ++sides[{a, b}];
        ++sides[{b, c}];
        ++sides[{c, a}];
    }
    for (const auto& [side, count] : sides) {
        EXPECT_EQ(count, 1);
        EXPECT_TRUE(sides.contains({side.second, side.first}));
    }
}

TEST(HeadMesh, FacesOutwards) {
    const HeadMesh mesh = MakeHeadMesh(60, 80);
    for (std::size_t i = 0; i < mesh.points.size(); ++i) {
        const HeadPosition& normal = mesh.normals[i];
        const HeadPosition& d = mesh.directions[i];
        EXPECT_GT(normal.x * d.x + normal.y * d.y + normal.z * d.z, 0) << i;
        EXPECT_NEAR(std::hypot(normal.x, normal.y, normal.z), 1, 1e-9);
    }
}

TEST(HeadMesh, OfTooFewRingsHasThree) {
    EXPECT_EQ(MakeHeadMesh(0, -4).points.size(), 2U * 3 + 2);
}

} // namespace
