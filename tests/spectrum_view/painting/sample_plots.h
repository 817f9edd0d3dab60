// SPDX-License-Identifier: GPL-3.0-or-later
// Spectra like those of an EEG at rest: a fall with frequency and a peak of the alpha rhythm.
#pragma once

#include "spectrum_view/painting/band_colors.h"
#include "spectrum_view/painting/plot_input.h"

#include <cmath>
#include <string>
#include <vector>

namespace orvanta::test {

/// 0 to 32 Hz in bins of 0.5 Hz.
inline constexpr spectrum_view::FrequencyAxis kRestingAxis{0, 32, 0.5, 0, 64};

/// Power density of bin \p bin in µV²/Hz with the peak at \p peak_Hz. The background is 1/f, flat below 1 Hz.
inline double RestingPower(std::uint64_t bin, double peak_Hz) {
    const double hz = kRestingAxis.FrequencyOf(bin);
    return 20 / std::max(1.0, hz) + 14 * std::exp(-(hz - peak_Hz) * (hz - peak_Hz) / 1.6);
}

inline std::vector<spectrum_view::PlotBand> FiveBands() {
    using spectrum_view::kBandColors;
    return {{0.5, 4, 1, 8, kBandColors[0], "Delta"},
            {4, 8, 8, 16, kBandColors[1], "Theta"},
            {8, 13, 16, 26, kBandColors[2], "Alpha"},
            {13, 30, 26, 60, kBandColors[3], "Beta"},
            {30, 45, 60, 90, kBandColors[4], "Gamma"}};
}

/// Power of a recording at rest with SD, in bands.
inline spectrum_view::PlotCurve RestingCurve(double peak_Hz, owl::TColor color) {
    spectrum_view::PlotCurve curve{kRestingAxis, FiveBands(), {}, {}, color};
    for (std::uint64_t bin = 0; bin <= kRestingAxis.iTop; ++bin) {
        curve.values.push_back(RestingPower(bin, peak_Hz));
        curve.sd.push_back(0.25 * curve.values.back());
    }
    return curve;
}

/// A slot with one spectrum, points, drop lines and SD.
inline spectrum_view::PlotInput RestingPlot(const owl::TRect& slot, const std::string& name = "O1") {
    spectrum_view::PlotInput plot;
    plot.frame = {slot, name + " (µV²/Hz) ", "", "µV²/Hz", {}, {0, 22, 0}, {true, true, true, true, true}};
    plot.curves.push_back(RestingCurve(10, owl::Rgb(0, 70, 160)));
    return plot;
}

/// With a second spectrum of slower alpha, its significance and ratio.
inline spectrum_view::PlotInput ComparedPlot(const owl::TRect& slot, const std::string& name = "O1") {
    spectrum_view::PlotInput plot = RestingPlot(slot, name);
    plot.ratioName = "Ratio";
    plot.curves.push_back(RestingCurve(9, owl::Rgb(213, 94, 0)));
    for (std::uint64_t bin = 0; bin <= kRestingAxis.iTop; ++bin) {
        const double ratio = plot.curves[0].values[bin] / plot.curves[1].values[bin];
        plot.ratio.push_back(ratio);
        plot.p.push_back(std::abs(std::log(ratio)) > 0.3 ? 0.01 : 0.4);
    }
    return plot;
}

} // namespace orvanta::test
