// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/map_raster.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace orvanta::chart {

namespace {

/// Room between the lowest electrode and the edge.
constexpr double kRim = 0.06;

/// Twice the area of the triangle, positive when c lies to the left of the way from a to b.
double Turn(const Place& a, const Place& b, const Place& c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

/// Corners of the convex hull in one direction of rotation (Andrew's monotone chain).
std::vector<Place> HullOf(std::vector<Place> places) {
    std::sort(places.begin(), places.end(),
              [](const Place& a, const Place& b) { return a.x < b.x || (a.x == b.x && a.y < b.y); });
    places.erase(std::unique(places.begin(), places.end()), places.end());
    if (places.size() < 3) {
        return {};
    }
    std::vector<Place> hull;
    const auto chain = [&hull](auto first, auto last) {
        const std::size_t start = hull.size();
        for (auto place = first; place != last; ++place) {
            while (hull.size() >= start + 2 && Turn(hull[hull.size() - 2], hull.back(), *place) <= 0) {
                hull.pop_back();
            }
            hull.push_back(*place);
        }
        hull.pop_back();
    };
    chain(places.begin(), places.end());
    chain(places.rbegin(), places.rend());
    return hull.size() < 3 ? std::vector<Place>() : hull;
}

double DistanceToSide(const Place& from, const Place& to, const Place& place) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double along = ((place.x - from.x) * dx + (place.y - from.y) * dy) / (dx * dx + dy * dy);
    const double share = std::clamp(along, 0.0, 1.0);
    return std::hypot(place.x - from.x - share * dx, place.y - from.y - share * dy);
}

/// 0 inside.
double DistanceTo(const std::vector<Place>& hull, const Place& place) {
    bool inside = true;
    double nearest = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < hull.size(); ++i) {
        const Place& from = hull[i];
        const Place& to = hull[(i + 1) % hull.size()];
        inside = inside && Turn(from, to, place) >= 0;
        nearest = std::min(nearest, DistanceToSide(from, to, place));
    }
    return inside ? 0 : nearest;
}

} // namespace

HeadPosition OnHead(const Place& place) {
    const double radius = std::hypot(place.x, place.y);
    if (radius == 0) {
        return {0, 0, 1};
    }
    const double angle = radius * std::numbers::pi / 2;
    const double across = std::sin(angle) / radius;
    return {place.x * across, -place.y * across, std::cos(angle)};
}

MapRaster::MapRaster(int side, double reach) : side_(std::max(2, side)), reach_(std::max(1.0, reach)) {
    for (int row = 0; row < side_; ++row) {
        for (int column = 0; column < side_; ++column) {
            const Place place = PlaceOf(column, row);
            if (std::hypot(place.x, place.y) <= reach_) {
                pixels_.push_back(static_cast<std::uint32_t>(row * side_ + column));
                places_.push_back(place);
            }
        }
    }
}

Place MapRaster::PlaceOf(double column, double row) const {
    const double half = side_ / 2.0;
    return {(column + 0.5 - half) / half * reach_, (row + 0.5 - half) / half * reach_};
}

double ReachOf(std::span<const HeadPosition> electrodes) {
    double reach = 1;
    for (const HeadPosition& electrode : electrodes) {
        const Place place = Projected(electrode);
        reach = std::max(reach, std::hypot(place.x, place.y) + kRim);
    }
    return std::min(reach, kFarthest);
}

std::vector<bool> BeyondElectrodes(std::span<const Place> places, std::span<const HeadPosition> electrodes,
                                   double margin) {
    std::vector<Place> known;
    std::transform(electrodes.begin(), electrodes.end(), std::back_inserter(known), Projected);
    const std::vector<Place> hull = HullOf(std::move(known));
    std::vector<bool> beyond(places.size(), true);
    for (std::size_t i = 0; i < places.size() && !hull.empty(); ++i) {
        beyond[i] = DistanceTo(hull, places[i]) > margin;
    }
    return beyond;
}

} // namespace orvanta::chart
