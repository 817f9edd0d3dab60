// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/bridge/spectrum_choices.h"

#include "spectrum_view/spectrum.h"

namespace orvanta::review {

namespace {

/// By value of SPECT::Normalisation.
constexpr void (Spectrum::*kNormalise[])() = {
    &Spectrum::CmNormalizeNone,  &Spectrum::CmNormalizeByF,      &Spectrum::CmNormalizeBySqrtF,
    &Spectrum::CmNormalizeByLnF, &Spectrum::CmNormalizeByLog10F, &Spectrum::CmNormalizeDb,
};

/// Pages until the trace is the first.
void PageTo(Spectrum& view, std::uint64_t trace) {
    std::uint64_t first = view.GetState().firstTrace;
    while (first < trace) {
        view.CmNextTrace();
        if (view.GetState().firstTrace == first) {
            return; // there are fewer traces now
        }
        first = view.GetState().firstTrace;
    }
}

} // namespace

SpectrumLook LookOf(const Spectrum& view) {
    const spectrum_view::DisplaySettings& display = Spectrum::GetDisplay();
    return {.mode = display.mode,
            .normalisation = display.normalisation,
            .labels = display.showLabels,
            .axesText = display.showAxesText,
            .measuresBox = display.showMeasuresBox,
            .gain = display.gain,
            .firstTrace = view.GetState().firstTrace};
}

void Choose(Spectrum& view, const SpectrumLook& look) {
    view.ChangeDataMode(look.mode);
    (view.*kNormalise[static_cast<std::size_t>(look.normalisation)])();
    const spectrum_view::DisplaySettings& display = Spectrum::GetDisplay();
    if (display.showLabels != look.labels) {
        view.CmShowLabel();
    }
    if (display.showAxesText != look.axesText) {
        view.CmShowAxesText();
    }
    if (display.showMeasuresBox != look.measuresBox) {
        view.CmShowMeasures();
    }
    view.SetGain(look.gain);
    PageTo(view, look.firstTrace);
}

} // namespace orvanta::review
