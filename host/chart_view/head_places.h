// SPDX-License-Identifier: GPL-3.0-or-later
// Electrodes on a head of radius 1, seen from above, without pixels.
#pragma once

#include "spectra_contract/sensor.h"

#include <vector>

namespace orvanta::chart {

/// x to the right ear, y to the back of the head; the equator at distance 1.
struct Place {
    double x = 0;
    double y = 0;

    bool operator==(const Place&) const = default;
};

/// At θ / 90° from the centre for a position at the angle θ from the vertex.
ORVANTA_API Place Projected(const HeadPosition& position);

/// Squares of one size around their centres, and the frame around them and the head with ears and nose.
struct Squares {
    std::vector<Place> centres;
    double half = 0;   ///< half the side
    double reachX = 0; ///< the frame reaches from -reachX to reachX,
    double top = 0;    ///< from the nose's side at -top
    double bottom = 0; ///< to the back of the head
};

/// Squares around the places, moved apart so that none overlaps another, each by at most kMostWay across and
/// along; as large as they come in the frame that they and the head fill. Their half is 0 when there is no
/// room.
Squares Spread(const std::vector<Place>& places);

/// The head's lines as seen from above.
struct HeadLines {
    std::vector<Place> head;     ///< closed: the ring of the equator, first place repeated
    std::vector<Place> nose;     ///< open, from left to right
    std::vector<Place> leftEar;  ///< open, from front to back
    std::vector<Place> rightEar; ///< open, from front to back
};
ORVANTA_API const HeadLines& LinesOfHead();

// Of the head's radius: where the ears and the nose end.
inline constexpr double kEarReach = 1.08;
inline constexpr double kNoseReach = 1.14;
// How far a square may be moved from its place.
inline constexpr double kMostWay = 0.35;

} // namespace orvanta::chart
