// SPDX-License-Identifier: GPL-3.0-or-later
// Spectra over time for tests of their painters.
#pragma once

#include "spectrum_view/painting/plot_input.h"

#include <cstddef>
#include <vector>

namespace orvanta::test {

/// Rows of one second each from the given seconds on, \p bins values of 1 each.
inline spectrum_view::SpectraOverTime SecondsOfOnes(const std::vector<double>& begins, std::size_t bins) {
    spectrum_view::SpectraOverTime spectra{bins, std::vector<float>(begins.size() * bins, 1.0F), {}};
    for (const double begin : begins) {
        spectra.rows.push_back({begin, begin + 1});
    }
    return spectra;
}

/// 400 × 300 pixels, 0 to 10 Hz in bins of 1 Hz, values from 0 to 4, 10 s without a gap.
inline spectrum_view::OverTimeInput TenSeconds() {
    spectrum_view::OverTimeInput input;
    input.frame.slot = {0, 0, 400, 300};
    input.frame.label = "Fp1 (µV) ";
    input.frame.unit = "µV";
    input.frame.vertical = {0, 4, 0};
    input.axis = {0, 10, 1, 0, 10};
    input.spectra = SecondsOfOnes({0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, 11);
    input.color = owl::Rgb(0, 0, 160);
    input.end_s = 10;
    return input;
}

} // namespace orvanta::test
