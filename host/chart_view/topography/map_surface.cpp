// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/map_surface.h"

#include "host/chart_view/topography/electrode_hull.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace orvanta::chart {

namespace {

/// Radii of the head: a map does not count as extrapolated so far outside the electrodes, which is less than
/// they are apart.
constexpr double kMargin = 0.12;
constexpr int kRings = 80;
constexpr int kSectors = 128;

/// Keeps no surface alive by itself.
template <typename Surface, auto Make>
std::shared_ptr<const Surface> Shared(const std::vector<HeadPosition>& electrodes) {
    struct Known {
        std::vector<HeadPosition> electrodes;
        std::weak_ptr<const Surface> surface;
    };
    static std::vector<Known> all;
    std::erase_if(all, [](const Known& known) { return known.surface.expired(); });
    const auto same = std::find_if(all.begin(), all.end(),
                                   [&](const Known& known) { return known.electrodes == electrodes; });
    if (same != all.end()) {
        return same->surface.lock();
    }
    auto made = std::make_shared<const Surface>(Make(electrodes));
    all.push_back({electrodes, made});
    return made;
}

/// Where a map ends, and where its electrodes do.
class Ends {
public:
    explicit Ends(const std::vector<HeadPosition>& electrodes) : edge_(electrodes), hull_(electrodes) {}

    MapReach Reach() const {
        constexpr int kSteps = 360;
        MapReach reach;
        for (int i = 0; i < kSteps; ++i) {
            const double angle = 2 * std::numbers::pi * i / kSteps;
            const double here = edge_.At(angle);
            reach.front = std::max(reach.front, here * std::cos(angle));
            reach.back = std::max(reach.back, -here * std::cos(angle));
            reach.aside = std::max(reach.aside, here * std::abs(std::sin(angle)));
            reach.farthest = std::max(reach.farthest, here);
        }
        return reach;
    }
    float Covers(const Place& place) const {
        return static_cast<float>(edge_.At(std::atan2(place.x, -place.y)) - std::hypot(place.x, place.y));
    }
    float Beyond(const Place& place) const { return static_cast<float>(hull_.DistanceTo(place) - kMargin); }

private:
    MapEdge edge_;
    ElectrodeHull hull_;
};

FlatSurface MakeFlat(const std::vector<HeadPosition>& electrodes) {
    const Ends ends(electrodes);
    FlatSurface surface;
    surface.reach = ends.Reach();
    const double farthest = 1 + (kGridRim + 1) * (NodeAt(1) - NodeAt(0));
    std::vector<HeadPosition> points;
    for (int row = 0; row < kGridSide; ++row) {
        for (int column = 0; column < kGridSide; ++column) {
            const Place place{NodeAt(column) * surface.reach.farthest, NodeAt(row) * surface.reach.farthest};
            surface.covers.push_back(ends.Covers(place));
            surface.beyond.push_back(ends.Beyond(place));
            if (std::hypot(NodeAt(column), NodeAt(row)) <= farthest) {
                surface.nodes.push_back(static_cast<std::uint32_t>(row * kGridSide + column));
                points.push_back(OnHead(place));
            }
        }
    }
    surface.weights = SphericalSpline(electrodes).WeightsAt(points);
    return surface;
}

HeadSurface MakeHead(const std::vector<HeadPosition>& electrodes) {
    const HeadMesh& mesh = MapHead();
    const Ends ends(electrodes);
    HeadSurface surface{mesh, SphericalSpline(electrodes).WeightsAt(mesh.directions), {}, {}};
    for (const HeadPosition& direction : mesh.directions) {
        const Place place = Projected(direction);
        surface.covers.push_back(ends.Covers(place));
        surface.beyond.push_back(ends.Beyond(place));
    }
    return surface;
}

} // namespace

std::vector<float> FlatSurface::FieldOf(std::span<const float> values) const {
    std::vector<float> known(nodes.size());
    Interpolate(weights, values, known);
    std::vector<float> field(std::size_t{kGridSide} * kGridSide);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        field[nodes[i]] = known[i];
    }
    return field;
}

std::vector<float> HeadSurface::FieldOf(std::span<const float> values) const {
    std::vector<float> field(weights.Points());
    Interpolate(weights, values, field);
    return field;
}

std::shared_ptr<const FlatSurface> SharedFlatSurface(const std::vector<HeadPosition>& electrodes) {
    return Shared<FlatSurface, MakeFlat>(electrodes);
}

std::shared_ptr<const HeadSurface> SharedHeadSurface(const std::vector<HeadPosition>& electrodes) {
    return Shared<HeadSurface, MakeHead>(electrodes);
}

const HeadMesh& MapHead() {
    static const HeadMesh mesh = MakeHeadMesh(kRings, kSectors);
    return mesh;
}

GridSampler::GridSampler(int side) : side_(std::max(1, side)) {
    constexpr double kMiddle = (kGridSide - 1) / 2.0;
    for (int pixel = -1; pixel <= side_; ++pixel) {
        const double at = kMiddle + ((pixel + 0.5) / side_ * 2 - 1) * (kMiddle - kGridRim);
        Taps& taps = taps_.emplace_back();
        taps.first = std::clamp(static_cast<int>(std::floor(at)) - 1, 0, kGridSide - 4);
        const auto t = static_cast<float>(std::clamp(at - taps.first - 1, 0.0, 1.0));
        taps.weights[0] = t * (-0.5F + t * (1 - 0.5F * t));
        taps.weights[1] = 1 + t * t * (-2.5F + 1.5F * t);
        taps.weights[2] = t * (0.5F + t * (2 - 1.5F * t));
        taps.weights[3] = t * t * (-0.5F + 0.5F * t);
    }
}

void GridSampler::Row(std::span<const float> grid, int row, std::vector<float>& values) const {
    const auto above = static_cast<std::size_t>(row) + 1; // 0 for row -1
    const Taps& down = taps_[above];
    const auto* const first = grid.data() + static_cast<std::ptrdiff_t>(down.first) * kGridSide;
    float line[kGridSide];
    for (int node = 0; node < kGridSide; ++node) {
        line[node] = down.weights[0] * first[node] + down.weights[1] * first[node + kGridSide] +
                     down.weights[2] * first[node + 2 * kGridSide] +
                     down.weights[3] * first[node + 3 * kGridSide];
    }
    values.resize(taps_.size());
    for (std::size_t i = 0; i < taps_.size(); ++i) {
        const Taps& taps = taps_[i];
        const float* const at = line + taps.first;
        values[i] = taps.weights[0] * at[0] + taps.weights[1] * at[1] + taps.weights[2] * at[2] +
                    taps.weights[3] * at[3];
    }
}

} // namespace orvanta::chart
