// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/sd_band.h"

#include "spectrum_view/painting/plot_box.h"

#include <algorithm>
#include <cmath>

namespace orvanta::spectrum_view {

std::vector<std::vector<owl::TPoint>> SdBand(const CurveGeometry& geometry, std::span<const double> mean,
                                             std::span<const double> sd) {
    const int baseline = AxisOrigin(geometry.slot).y;
    const std::uint64_t end =
        std::min<std::uint64_t>(geometry.axis.iTop + 1, std::min(mean.size(), sd.size()));
    std::vector<std::vector<owl::TPoint>> outlines;
    std::vector<owl::TPoint> upper;
    std::vector<owl::TPoint> lower;
    const auto finish = [&] {
        if (upper.size() > 1) {
            upper.insert(upper.end(), lower.rbegin(), lower.rend());
            outlines.push_back(upper);
        }
        upper.clear();
        lower.clear();
    };
    for (std::uint64_t bin = geometry.axis.iBottom; bin < end; ++bin) {
        if (!std::isfinite(mean[bin]) || !std::isfinite(sd[bin])) {
            finish();
            continue;
        }
        const int x = CurveX(geometry.slot, geometry.axis, bin);
        upper.push_back({x, std::min(baseline, CurveY(geometry, mean[bin] + sd[bin], bin))});
        lower.push_back({x, std::min(baseline, CurveY(geometry, mean[bin] - sd[bin], bin))});
    }
    finish();
    return outlines;
}

} // namespace orvanta::spectrum_view
