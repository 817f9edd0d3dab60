// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/mean_curve.h"

#include "spectrum_view/painting/plot_box.h"
#include "spectrum_view/painting/whole_pixels.h"

#include <cmath>

namespace orvanta::spectrum_view {

namespace {

constexpr int kMarkerReach = 2;

bool HasMarker(const MeanCurve& curve, const FrequencyAxis& axis, std::uint64_t bin) {
    return bin >= axis.iBottom && bin <= axis.iTop && MarkerPoint(axis, bin) < curve.points.size() &&
           curve.computable[MarkerPoint(axis, bin)];
}

} // namespace

int CurveY(const CurveGeometry& geometry, double value, std::uint64_t bin) {
    double v = value - geometry.vertical.min;
    if (geometry.normalisation == SPECT::Normalisation::ByF) {
        v *= geometry.axis.FrequencyOf(bin);
    } else if (geometry.normalisation == SPECT::Normalisation::BySqrtF) {
        v *= std::sqrt(geometry.axis.FrequencyOf(bin));
    }
    v = v * kPlotHeight / geometry.vertical.Span();
    return geometry.slot.top + WholePixels(geometry.slot.Height() * (kPlotBottom - v));
}

std::vector<std::span<const owl::TPoint>> MeanCurve::Stretches() const {
    std::vector<std::span<const owl::TPoint>> stretches;
    std::size_t first = 0;
    for (std::size_t i = 0; i <= points.size(); ++i) {
        if (i < points.size() && computable[i]) {
            continue;
        }
        if (i - first > 1) {
            stretches.push_back(std::span(points).subspan(first, i - first));
        }
        first = i + 1;
    }
    return stretches;
}

MeanCurve CurveOf(const CurveGeometry& geometry, std::span<const double> values) {
    MeanCurve curve;
    const std::size_t count = static_cast<std::size_t>(geometry.axis.iTop - geometry.axis.iBottom) + 2;
    curve.points.reserve(count);
    curve.computable.reserve(count);
    curve.points.push_back(AxisOrigin(geometry.slot));
    curve.computable.push_back(true);
    for (std::uint64_t bin = geometry.axis.iBottom; bin <= geometry.axis.iTop; ++bin) {
        const double value = bin < values.size() ? values[bin] : 0.0;
        curve.points.push_back({CurveX(geometry.slot, geometry.axis, bin), CurveY(geometry, value, bin)});
        curve.computable.push_back(std::isfinite(value));
    }
    return curve;
}

std::optional<owl::TRect> MarkerRect(const MeanCurve& curve, const FrequencyAxis& axis, std::uint64_t bin) {
    if (!HasMarker(curve, axis, bin)) {
        return std::nullopt;
    }
    const owl::TPoint& at = curve.points[MarkerPoint(axis, bin)];
    return owl::TRect{at.x, at.y, at.x + 1, at.y + 1}.InflatedBy(kMarkerReach, kMarkerReach);
}

std::optional<DropLine> DropLineOf(const CurveGeometry& geometry, const MeanCurve& curve, std::uint64_t bin) {
    if (!HasMarker(curve, geometry.axis, bin)) {
        return std::nullopt;
    }
    const owl::TPoint& at = curve.points[MarkerPoint(geometry.axis, bin)];
    return DropLine{at, {at.x, SlotY(geometry.slot, kPlotBottom)}};
}

} // namespace orvanta::spectrum_view
