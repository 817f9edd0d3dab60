// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/electrode_hull.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>
#include <utility>

namespace orvanta::chart {

namespace {

/// Room between the lowest electrode and the edge.
constexpr double kRim = 0.06;
/// Radians: so far beside an electrode the edge is back at the head.
constexpr double kBulge = 75 * std::numbers::pi / 180;
/// Farther than anything on a map.
constexpr double kNowhere = 10;

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

MapEdge::MapEdge(std::span<const HeadPosition> electrodes) {
    for (const HeadPosition& electrode : electrodes) {
        const Place place = Projected(electrode);
        const double reach = std::min(std::hypot(place.x, place.y) + kRim, kFarthest);
        farthest_ = std::max(farthest_, reach);
        if (reach > 1 + kRim) {
            low_.push_back({std::atan2(place.x, -place.y), reach - 1 - kRim});
        }
    }
}

double MapEdge::At(double angle) const {
    // The fourth power joins neighbouring bulges without a notch.
    double sum = 0;
    for (const Low& low : low_) {
        const double away = std::abs(std::remainder(angle - low.angle, 2 * std::numbers::pi));
        if (away < kBulge) {
            const double height = low.height * (1 + std::cos(away / kBulge * std::numbers::pi)) / 2;
            sum += height * height * height * height;
        }
    }
    return std::min(1 + kRim + std::pow(sum, 0.25), farthest_);
}

ElectrodeHull::ElectrodeHull(std::span<const HeadPosition> electrodes) {
    std::vector<Place> places;
    std::transform(electrodes.begin(), electrodes.end(), std::back_inserter(places), Projected);
    corners_ = HullOf(std::move(places));
}

double ElectrodeHull::DistanceTo(const Place& place) const {
    bool inside = !IsEmpty();
    double nearest = kNowhere;
    for (std::size_t i = 0; i < corners_.size(); ++i) {
        const Place& from = corners_[i];
        const Place& to = corners_[(i + 1) % corners_.size()];
        inside = inside && Turn(from, to, place) >= 0;
        nearest = std::min(nearest, DistanceToSide(from, to, place));
    }
    return inside ? 0 : nearest;
}

} // namespace orvanta::chart
