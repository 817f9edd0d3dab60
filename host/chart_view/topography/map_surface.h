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
/// Nodes beyond the edge of the disc on each side.
inline constexpr int kGridRim = 2;

/// The node's distance from the middle of the grid, in radii of the disc.
constexpr double NodeAt(int node) {
    constexpr double kMiddle = (kGridSide - 1) / 2.0;
    return (node - kMiddle) / (kMiddle - kGridRim);
}

/// Of a flat map: the head seen from above.
struct FlatSurface {
    double reach = 1;                 ///< radius of the disc, in radii of the head
    std::vector<std::uint32_t> nodes; ///< numbers of those that count, row by row
    SplineWeights weights;            ///< for each of them
    /// For each node of the grid: how far it lies outside the electrodes, in radii of the head; below 0
    /// inside or less than a margin outside.
    std::vector<float> beyond;

    /// \param values of the electrodes, finite \return for each node of the grid
    std::vector<float> FieldOf(std::span<const float> values) const;
};

/// Of a head in three dimensions.
struct HeadSurface {
    const HeadMesh& mesh;
    SplineWeights weights;     ///< for each corner of the mesh
    std::vector<float> covers; ///< the same: above 0 where the electrodes tell something

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
/// \param side of the picture that the disc just fits, pixels
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
