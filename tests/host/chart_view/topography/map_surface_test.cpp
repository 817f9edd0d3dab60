// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/map_surface.h"

#include "host/chart_view/topography/electrode_hull.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace {

using namespace orvanta::chart;

/// Along a spiral from the vertex to a little below the equator.
std::vector<HeadPosition> Spiral(int count) {
    std::vector<HeadPosition> electrodes;
    for (int i = 0; i < count; ++i) {
        const double z = 1 - 1.2 * (i + 0.5) / count;
        const double across = std::sqrt(1 - z * z);
        electrodes.push_back({across * std::cos(2.4 * i), across * std::sin(2.4 * i), z});
    }
    return electrodes;
}

std::vector<float> Waves(const std::vector<HeadPosition>& electrodes) {
    std::vector<float> values;
    for (const HeadPosition& at : electrodes) {
        values.push_back(static_cast<float>(std::sin(4 * at.x) + std::cos(5 * at.y) * at.z));
    }
    return values;
}

TEST(SharedSurface, IsOneForTheSameElectrodes) {
    const auto one = SharedFlatSurface(Spiral(20));
    EXPECT_EQ(SharedFlatSurface(Spiral(20)), one);
    EXPECT_NE(SharedFlatSurface(Spiral(21)), one);
    const auto head = SharedHeadSurface(Spiral(20));
    EXPECT_EQ(SharedHeadSurface(Spiral(20)), head);
}

TEST(SharedSurface, EndsWithThoseWhoKeepIt) {
    const std::weak_ptr<const FlatSurface> surface = SharedFlatSurface(Spiral(9));
    EXPECT_TRUE(surface.expired());
}

TEST(FlatSurface, HasOneValueForEqualElectrodes) {
    const auto surface = SharedFlatSurface(Spiral(20));
    const std::vector<float> field = surface->FieldOf(std::vector<float>(20, 3));
    for (const std::uint32_t node : surface->nodes) {
        EXPECT_NEAR(field[node], 3, 1e-4);
    }
}

TEST(FlatSurface, ReachesToTheLowestElectrode) {
    const MapReach reach = SharedFlatSurface({{0, 0, 1}, {0, -0.9239, -0.3827}, {1, 0, 0}})->reach;
    EXPECT_NEAR(reach.back, 1.31, 1e-3); // 112.5° are 1.25 radii, and some more
    EXPECT_NEAR(reach.farthest, 1.31, 1e-3);
    EXPECT_NEAR(reach.front, 1.06, 1e-3);
}

TEST(FlatSurface, TellsWhereValuesAreExtrapolated) {
    // A square with its corners on the edge of the head, to the front, back and sides.
    const auto surface = SharedFlatSurface({{1, 0, 0}, {-1, 0, 0}, {0, 1, 0}, {0, -1, 0}});
    const int middle = kGridSide / 2;
    EXPECT_LT(surface->beyond[static_cast<std::size_t>(middle * kGridSide + middle)], 0);
    const int diagonal = middle + (middle - kGridRim) * 6 / 10;
    const auto outside = static_cast<std::size_t>(diagonal * kGridSide + diagonal);
    EXPECT_GT(surface->beyond[outside], 0);
    EXPECT_GT(surface->covers[outside], 0);
}

TEST(GridSampler, AgreesWithTheSplineBetweenTheNodes) {
    const std::vector<HeadPosition> electrodes = Spiral(64);
    const std::vector<float> values = Waves(electrodes);
    const auto surface = SharedFlatSurface(electrodes);
    const std::vector<float> field = surface->FieldOf(values);
    constexpr int kSide = 301;
    const GridSampler sampler(kSide);
    const SphericalSpline spline(electrodes);
    std::vector<float> row;
    for (int y = 10; y < kSide; y += 29) {
        sampler.Row(field, y, row);
        for (int x = 10; x < kSide; x += 23) {
            const Place place{((x + 0.5) / kSide * 2 - 1) * surface->reach.farthest,
                              ((y + 0.5) / kSide * 2 - 1) * surface->reach.farthest};
            if (std::hypot(place.x, place.y) <= surface->reach.farthest) {
                float exact = 0;
                Interpolate(spline.WeightsAt(std::vector{OnHead(place)}), values, {&exact, 1});
                EXPECT_NEAR(row[static_cast<std::size_t>(x) + 1], exact, 2e-3); // of values from -1.9 to 2
            }
        }
    }
}

TEST(GridSampler, HasAPixelMoreOnEachSide) {
    const GridSampler sampler(10);
    std::vector<float> row;
    sampler.Row(std::vector<float>(kGridSide * kGridSide, 7), -1, row);
    ASSERT_EQ(row.size(), 12U);
    for (const float value : row) {
        EXPECT_NEAR(value, 7, 1e-5);
    }
}

} // namespace
