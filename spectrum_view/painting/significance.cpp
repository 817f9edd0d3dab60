// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/significance.h"

#include "spectrum_view/painting/plot_box.h"
#include "spectrum_view/painting/whole_pixels.h"

#include <algorithm>
#include <cmath>

namespace orvanta::spectrum_view {

namespace {

constexpr int kTallestMark = 6;
constexpr int kLowestMark = 2;
/// Between the baseline and a mark.
constexpr int kMarkGap = 2;

} // namespace

int MarksHeight(const owl::TRect& slot) {
    const int margin = slot.bottom - SlotY(slot, kPlotBottom);
    return kMarkGap + std::clamp((margin - kMarkGap) / 4, kLowestMark, kTallestMark);
}

std::vector<Triangle> SignificanceMarks(const owl::TRect& slot, const FrequencyAxis& axis,
                                        std::span<const double> p, double threshold) {
    // Narrower where the bins stand close, so that neighbours stay apart.
    const int pitch = CurveX(slot, axis, axis.iBottom + 1) - CurveX(slot, axis, axis.iBottom);
    const int half = std::clamp((pitch - 1) / 2, 1, (MarksHeight(slot) - kMarkGap) / 2 + 1);
    const int top = AxisOrigin(slot).y + kMarkGap;
    const int bottom = AxisOrigin(slot).y + MarksHeight(slot) - 1;
    std::vector<Triangle> marks;
    for (std::uint64_t bin = axis.iBottom; bin <= axis.iTop && bin < p.size(); ++bin) {
        if (p[bin] < threshold) {
            const int x = CurveX(slot, axis, bin);
            marks.push_back({{{x, top}, {x + half, bottom}, {x - half, bottom}}});
        }
    }
    return marks;
}

int RatioY(const owl::TRect& slot, double ratio) {
    return slot.top + WholePixels(slot.Height() * (kPlotBottom - ratio * kPlotHeight * kRatioScale / 100));
}

std::vector<std::vector<owl::TPoint>> RatioSteps(const owl::TRect& slot, const FrequencyAxis& axis,
                                                 std::span<const double> ratio) {
    const owl::TRect plot = PlotArea(slot);
    std::vector<std::vector<owl::TPoint>> stretches;
    bool open = false;
    for (std::uint64_t bin = axis.iBottom; bin <= axis.iTop && bin < ratio.size(); ++bin) {
        if (!std::isfinite(ratio[bin])) {
            open = false;
            continue;
        }
        if (!open) {
            stretches.emplace_back();
            open = true;
        }
        const int x = CurveX(slot, axis, bin);
        const int before = bin == axis.iBottom ? x : CurveX(slot, axis, bin - 1);
        const int after = CurveX(slot, axis, bin + 1);
        const int y = RatioY(slot, ratio[bin]);
        stretches.back().push_back({(before + x) / 2, y});
        stretches.back().push_back({std::min((x + after) / 2, plot.right), y});
    }
    return stretches;
}

} // namespace orvanta::spectrum_view
