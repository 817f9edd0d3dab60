// SPDX-License-Identifier: GPL-3.0-or-later
// Values between electrodes on the head.
#pragma once

#include "spectra_contract/sensor.h"

#include <cstddef>
#include <span>
#include <vector>

namespace orvanta::chart {

/// One row of weights for each point: the point's value is the sum of weight × electrode value.
struct SplineWeights {
    std::size_t electrodes = 0;
    std::vector<float> rows; ///< points × electrodes

    std::size_t Points() const { return electrodes == 0 ? 0 : rows.size() / electrodes; }
};

/// Spherical splines (Perrin, Pernier, Bertrand and Echallier 1989, Electroencephalography and Clinical
/// Neurophysiology 72, 184-187, with the erratum of 1990, ibid. 76, 565) of order 4, regularised by 1e-5.
/// With one electrode the field is constant; electrodes at one place count as their mean. What depends on the
/// places alone is solved once, so that a new field costs one product.
class ORVANTA_API SphericalSpline {
public:
    /// \param electrodes any distance from the centre; one in the centre counts as the vertex
    explicit SphericalSpline(std::span<const HeadPosition> electrodes);

    std::size_t Electrodes() const { return electrodes_.size(); }
    /// \param points any distance from the centre
    SplineWeights WeightsAt(std::span<const HeadPosition> points) const;

private:
    std::vector<HeadPosition> electrodes_; ///< on the unit sphere
    std::vector<double>
        solution_; ///< (electrodes + 1) × electrodes: from values to coefficients, then constant
};

/// The fields of several maps at once.
/// \param values maps × electrodes, finite
/// \param fields maps × points, the result
ORVANTA_API void Interpolate(const SplineWeights& weights, std::span<const float> values,
                             std::span<float> fields);

/// The spline's kernel: sum over n from 1 of (2n + 1) / (n(n + 1))^4 · Pn(cosine), divided by 4π.
ORVANTA_API double SplineKernel(double cosine);

} // namespace orvanta::chart
