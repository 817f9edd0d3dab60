// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/frequency_axis.h"

#include "spectra_contract/spect_macro_result.h"
#include "spectrum_view/painting/plot_box.h"
#include "spectrum_view/painting/whole_pixels.h"

namespace orvanta::spectrum_view {

FrequencyAxis AxisOf(const SpectMacroResult& analysis, double bottom, double top) {
    return {bottom, top, analysis.GetResolutionHz(), analysis.GetIndexFromFreq(bottom),
            analysis.GetIndexFromFreq(top)};
}

int CurveX(const owl::TRect& slot, const FrequencyAxis& axis, std::uint64_t bin) {
    const double steps = static_cast<double>(bin) - static_cast<double>(axis.iBottom);
    return slot.left +
           WholePixels(slot.Width() *
                       (kPlotLeft + steps * kPlotWidth / ((1 / axis.resolution) * (axis.top - axis.bottom))));
}

int ShadingX(const owl::TRect& slot, const FrequencyAxis& axis, std::uint64_t bin) {
    const double k = kPlotWidth / ((axis.top - axis.bottom) * (1.0 / axis.resolution));
    return slot.left + WholePixels(slot.Width() * (static_cast<double>(bin) * k + kPlotLeft));
}

int FrequencyX(const owl::TRect& slot, const FrequencyAxis& axis, double hz) {
    return SlotX(slot, kPlotLeft + (hz - axis.bottom) / (axis.top - axis.bottom) * kPlotWidth);
}

} // namespace orvanta::spectrum_view
