// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/state/frequency_zoom.h"

#include <algorithm>
#include <cmath>

namespace orvanta::spectrum_view {

namespace {

constexpr double kNarrowest = 4.0; // Hz

} // namespace

void Widen(SPECT::Scale& scale, double rate) {
    const auto wholeRate = std::llround(rate);
    const auto wholeHalf = wholeRate / 2; // Hz, cut
    scale.MaxX =
        static_cast<double>(wholeRate) * 0.5 > scale.MaxX ? 2 * scale.MaxX : static_cast<double>(wholeHalf);
}

void Narrow(SPECT::Scale& scale) {
    scale.MaxX = scale.MaxX < 2 * kNarrowest ? kNarrowest : scale.MaxX * 0.5;
}

SPECT::FrequencyRange RangeAfterZoom(const SPECT::Scale& scale, const SPECT::FrequencyRange& shown,
                                     double loadedRate) {
    return SPECT::ClampFrequencyRange(shown.bottom, scale.MaxX, loadedRate);
}

SPECT::FrequencyRange RangeAfterEdit(const SPECT::Scale& scale) {
    const double top = std::max(scale.MaxX, kNarrowest);
    const double bottom = std::max(scale.MinX, 0.0);
    return {bottom >= top ? 0.0 : bottom, top};
}

} // namespace orvanta::spectrum_view
