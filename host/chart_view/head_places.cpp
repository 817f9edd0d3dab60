// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/head_places.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace orvanta::chart {

namespace {

constexpr double kLargestHalf = 0.5;
constexpr int kSearchSteps = 14;
constexpr int kMostRounds = 400;
/// Squares are kept this much farther apart than they are wide, so that they do not touch by rounding.
constexpr double kMargin = 1e-6;
constexpr double kOverRelaxation = 1.04;

void Reach(Squares& squares) {
    squares.reachX = kEarReach;
    squares.reachY = kNoseReach;
    for (const Place& centre : squares.centres) {
        squares.reachX = std::max(squares.reachX, std::abs(centre.x) + squares.half);
        squares.reachY = std::max(squares.reachY, std::abs(centre.y) + squares.half);
    }
}

/// Side of a square as a share of the frame, which is what counts on screen.
double ShownSize(const Squares& squares) {
    return squares.half * squares.half / (squares.reachX * squares.reachY);
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
    for (std::size_t i = 0; i < centres.size(); ++i) {
        centres[i].x += moves[i].x;
        centres[i].y += moves[i].y;
    }
    return apart;
}

/// Brings a centre back so that its square holds the place.
void Hold(Place& centre, const Place& place, double half) {
    centre.x = std::clamp(centre.x, place.x - half, place.x + half);
    centre.y = std::clamp(centre.y, place.y - half, place.y + half);
}

/// Squares of that size, or none when they do not come apart.
bool TrySize(const std::vector<Place>& places, double half, Squares& squares) {
    squares.half = half;
    squares.centres = places;
    for (int round = 0; round < kMostRounds; ++round) {
        if (Relax(squares.centres, 2 * half * (1 + kMargin))) {
            Reach(squares);
            return true;
        }
        for (std::size_t i = 0; i < places.size(); ++i) {
            Hold(squares.centres[i], places[i], half * (1 - kMargin));
        }
    }
    return false;
}

} // namespace

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
    Reach(best);
    double fits = 0;
    double tooLarge = kLargestHalf;
    for (int step = 0; step < kSearchSteps; ++step) {
        const double half = step == 0 ? kLargestHalf : (fits + tooLarge) / 2;
        Squares tried;
        if (!TrySize(places, half, tried)) {
            tooLarge = half;
            continue;
        }
        fits = half;
        if (ShownSize(tried) > ShownSize(best)) {
            best = std::move(tried);
        }
        if (step == 0) {
            break;
        }
    }
    return best;
}

} // namespace orvanta::chart
