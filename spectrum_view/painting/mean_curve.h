// SPDX-License-Identifier: GPL-3.0-or-later
// The points of a mean spectrum's curve, and what stands at them.
#pragma once

#include "host/toolkit/geometry.h"
#include "spectra_contract/spectra_types.h"
#include "spectrum_view/painting/frequency_axis.h"
#include "spectrum_view/painting/vertical_range.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace orvanta::spectrum_view {

/// What places values in a slot.
struct CurveGeometry {
    owl::TRect slot;
    FrequencyAxis axis;     ///< drawable
    VerticalRange vertical; ///< drawable
    SPECT::Normalisation normalisation = SPECT::Normalisation::None;
};

/// Row of a bin's value: v = value − min, times f for ByF or √f for BySqrtF (the other modes change nothing),
/// times 0.87 / (max − min); top + trunc(height × (0.92 − v)).
int CurveY(const CurveGeometry& geometry, double value, std::uint64_t bin);

/// A curve. Point 0 is the axis' origin, point 1 + i − iBottom is the vertex of bin i.
struct MeanCurve {
    std::vector<owl::TPoint> points;
    std::vector<bool> computable; ///< as long; false at the vertex of a bin without a number

    /// The stretches to join by lines: the points between vertices without a number; single points are left
    /// out.
    std::vector<std::span<const owl::TPoint>> Stretches() const;

    bool operator==(const MeanCurve&) const = default;
};

/// \param values one per bin from bin 0; bins beyond the last count as 0.0
MeanCurve CurveOf(const CurveGeometry& geometry, std::span<const double> values);

/// Index of the point that carries bin \p bin's marker and drop line: bin − iBottom, one vertex behind the
/// bin's own. So the lowest bin's marker sits on the origin and the top bin's vertex has none.
constexpr std::uint64_t MarkerPoint(const FrequencyAxis& axis, std::uint64_t bin) {
    return bin - axis.iBottom;
}

/// Circle of 5 × 5 pixels on the point of a bin's marker; nothing where the point is no number.
std::optional<owl::TRect> MarkerRect(const MeanCurve& curve, const FrequencyAxis& axis, std::uint64_t bin);

/// A straight line down to the baseline.
struct DropLine {
    owl::TPoint from;
    owl::TPoint to;

    bool operator==(const DropLine&) const = default;
};

/// From the point of the bin's marker to the baseline; nothing where the point is no number.
std::optional<DropLine> DropLineOf(const CurveGeometry& geometry, const MeanCurve& curve, std::uint64_t bin);

} // namespace orvanta::spectrum_view
