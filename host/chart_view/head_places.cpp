// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/head_places.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace orvanta::chart {

namespace {

constexpr double kSmallestHalf = 0.005;
constexpr double kLargestHalf = 0.5;
constexpr double kGrowth = 1.02;
constexpr int kMostRounds = 200;
/// Squares are pushed a little farther than they must go, or they would come apart only in the limit.
constexpr double kOverRelaxation = 1.04;
/// They are kept this much farther apart than they are wide, so that they do not touch by rounding.
constexpr double kMargin = 1e-6;

void Frame(Squares& squares) {
    squares.reachX = kEarReach;
    squares.top = kNoseReach;
    squares.bottom = 1;
    for (const Place& centre : squares.centres) {
        squares.reachX = std::max(squares.reachX, std::abs(centre.x) + squares.half);
        squares.top = std::max(squares.top, squares.half - centre.y);
        squares.bottom = std::max(squares.bottom, centre.y + squares.half);
    }
}

/// A square's share of the frame, which is what counts on screen.
double ShownSize(const Squares& squares) {
    return squares.half * squares.half / (squares.reachX * (squares.top + squares.bottom));
}

/// Moves every overlapping pair apart by half of what is missing and a little more, all pairs at once, so
/// that a head stays as symmetric as it is. \return whether nothing overlapped
bool Relax(std::vector<Place>& centres, double side) {
    const double wanted = side * kOverRelaxation;
    std::vector<std::size_t> order(centres.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return centres[a].y < centres[b].y; });
    std::vector<Place> moves(centres.size());
    bool apart = true;
    for (std::size_t i = 0; i < order.size(); ++i) {
        const Place& upper = centres[order[i]];
        for (std::size_t j = i + 1; j < order.size() && centres[order[j]].y - upper.y < wanted; ++j) {
            const Place& lower = centres[order[j]];
            const double missingX = wanted - std::abs(lower.x - upper.x);
            const double missingY = wanted - (lower.y - upper.y);
            if (missingX <= 0) {
                continue;
            }
            apart = apart && !(missingX > wanted - side && missingY > wanted - side);
            Place& a = moves[order[i]];
            Place& b = moves[order[j]];
            if (missingX < missingY) {
                const double half = (lower.x < upper.x ? -missingX : missingX) / 2;
                a.x -= half;
                b.x += half;
            } else {
                a.y -= missingY / 2;
                b.y += missingY / 2;
            }
        }
    }
    for (std::size_t i = 0; !apart && i < centres.size(); ++i) {
        centres[i].x += moves[i].x;
        centres[i].y += moves[i].y;
    }
    return apart;
}

/// Lets the squares make way for each other at the given size. \return whether there was room
bool ComeApart(Squares& squares, const std::vector<Place>& places, double half) {
    squares.half = half;
    for (int round = 0; round < kMostRounds; ++round) {
        if (Relax(squares.centres, 2 * half * (1 + kMargin))) {
            Frame(squares);
            return true;
        }
        for (std::size_t i = 0; i < places.size(); ++i) {
            Place& centre = squares.centres[i];
            centre.x = std::clamp(centre.x, places[i].x - kMostWay, places[i].x + kMostWay);
            centre.y = std::clamp(centre.y, places[i].y - kMostWay, places[i].y + kMostWay);
        }
    }
    return false;
}

/// Places on an ellipse from one angle to another; 0° is to the right ear, 90° to the nose.
std::vector<Place> Arc(const Place& centre, const Place& radius, double from, double to, int steps) {
    std::vector<Place> places;
    for (int i = 0; i <= steps; ++i) {
        const double angle = (from + (to - from) * i / steps) * std::numbers::pi / 180;
        places.push_back({centre.x + radius.x * std::cos(angle), centre.y - radius.y * std::sin(angle)});
    }
    return places;
}

HeadLines MakeLines() {
    constexpr double kNoseHalfAngle = 9 * std::numbers::pi / 180;
    constexpr double kEarHalfHeight = 0.2;
    const Place nose{std::sin(kNoseHalfAngle), -std::cos(kNoseHalfAngle)};
    const double from = std::sqrt(1 - kEarHalfHeight * kEarHalfHeight);
    const Place ear{kEarReach - from, kEarHalfHeight};
    return {Arc({}, {1, 1}, 0, 360, 90),
            {{-nose.x, nose.y}, {0, -kNoseReach}, nose},
            Arc({-from, 0}, ear, 90, 270, 12),
            Arc({from, 0}, ear, 90, -90, 12)};
}

} // namespace

const HeadLines& LinesOfHead() {
    static const HeadLines lines = MakeLines();
    return lines;
}

Place Projected(const HeadPosition& position) {
    const double across = std::hypot(position.x, position.y);
    if (across == 0) {
        return {};
    }
    const double distance = std::atan2(across, position.z) / (std::numbers::pi / 2);
    return {distance * position.x / across, -distance * position.y / across};
}

Squares Spread(const std::vector<Place>& places) {
    Squares best;
    best.centres = places;
    Frame(best);
    // Grown from small squares, each size starting where the one before came to rest: crowded places then
    // give way far beyond their nearest neighbours, where a large size tried at once would jam.
    Squares growing = best;
    for (double half = kSmallestHalf; half <= kLargestHalf; half *= kGrowth) {
        if (!ComeApart(growing, places, half)) {
            break;
        }
        if (ShownSize(growing) > ShownSize(best)) {
            best = growing;
        }
    }
    return best;
}

} // namespace orvanta::chart
