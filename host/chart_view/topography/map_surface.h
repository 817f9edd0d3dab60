// SPDX-License-Identifier: GPL-3.0-or-later
// What all maps of the same electrodes are interpolated with.
#pragma once

#include "host/chart_view/topography/head_mesh.h"
#include "host/chart_view/topography/spherical_spline.h"

#include <memory>
#include <span>
#include <vector>

namespace orvanta::chart {

/// Nodes along each side of the grid of a flat map. The fields are smooth: what lies between nodes is told
/// by the 16 around it.
inline constexpr int kGridSide = 129;
/// Nodes beyond the farthest reach of the map on each side.
inline constexpr int kGridRim = 2;

/// The node's distance from the middle of the grid, from -1 to 1 within the reach of the map.
constexpr double NodeAt(int node) {
    constexpr double kMiddle = (kGridSide - 1) / 2.0;
    return (node - kMiddle) / (kMiddle - kGridRim);
}

/// How far a map reaches from the vertex, in radii of the head.
struct MapReach {
    double front = 1, back = 1, aside = 1;
    double farthest = 1; ///< in any direction: the radius of the grid's disc
};

/// Of a flat map: the head seen from above.
struct ORVANTA_API FlatSurface {
    MapReach reach;
    std::vector<std::uint32_t> nodes; ///< numbers of those that count, row by row
    SplineWeights weights;            ///< for each of them
    // For each node of the grid, in radii of the head:
    std::vector<float> covers; ///< how far it lies inside the edge of the map; below 0 outside
    std::vector<float> beyond; ///< how far it lies outside the electrodes; below 0 inside and close to them

    /// \param values of the electrodes, finite \return for each node of the grid
    std::vector<float> FieldOf(std::span<const float> values) const;
};

/// Of a head in three dimensions.
struct ORVANTA_API HeadSurface {
    const HeadMesh& mesh;
    SplineWeights weights;     ///< for each corner of the mesh
    std::vector<float> covers; ///< the same, as FlatSurface has it
    std::vector<float> beyond; ///< the same

    /// \param values of the electrodes, finite \return for each corner
    std::vector<float> FieldOf(std::span<const float> values) const;
};

/// One for all who ask for the same electrodes while anyone keeps it; making it takes a moment. GUI thread.
/// \param electrodes at least one
ORVANTA_API std::shared_ptr<const FlatSurface> SharedFlatSurface(const std::vector<HeadPosition>& electrodes);
ORVANTA_API std::shared_ptr<const HeadSurface> SharedHeadSurface(const std::vector<HeadPosition>& electrodes);

/// The mesh of every head.
ORVANTA_API const HeadMesh& MapHead();

/// Cubic (Catmull and Rom 1974) through the nodes. \param grid of kGridSide squared nodes
/// \param side of the picture into which the farthest reach just fits, pixels
class ORVANTA_API GridSampler {
public:
    explicit GridSampler(int side);

    /// Values at the middles of the pixels of a row, one more on each side. \param row from -1 to side
    void Row(std::span<const float> grid, int row, std::vector<float>& values) const;
    int Side() const { return side_; }

private:
    struct Taps {
        int first = 0;
        float weights[4] = {};
    };
    int side_;
    std::vector<Taps> taps_; ///< from pixel -1 to pixel side
};

} // namespace orvanta::chart
