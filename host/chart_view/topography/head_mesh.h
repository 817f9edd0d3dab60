// SPDX-License-Identifier: GPL-3.0-or-later
// The head of a map in three dimensions.
#pragma once

#include "spectra_contract/sensor.h"

#include <array>
#include <cstdint>
#include <vector>

namespace orvanta::chart {

/// Distance of the head's surface from its centre in a direction, in units of about half its length: a skull
/// with face, ears and neck, of our own. \param direction of length 1, x to the right ear, y to the nose, z
/// up
ORVANTA_API double HeadRadius(const HeadPosition& direction);
/// The surface's point in that direction; any length but 0.
ORVANTA_API HeadPosition OnSurface(const HeadPosition& direction);

/// A closed surface of triangles, their corners counter-clockwise as seen from outside.
struct HeadMesh {
    std::vector<HeadPosition> directions; ///< of the corners, of length 1
    std::vector<HeadPosition> points;
    std::vector<HeadPosition> normals; ///< outwards, of length 1
    std::vector<std::array<std::uint32_t, 3>> triangles;
};

/// \param rings from the vertex down, at least 3 \param sectors around, at least 3
ORVANTA_API HeadMesh MakeHeadMesh(int rings, int sectors);

} // namespace orvanta::chart
