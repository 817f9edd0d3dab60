// SPDX-License-Identifier: GPL-3.0-or-later
// The colours of the frequency bands.
#pragma once

#include "host/toolkit/geometry.h"
#include "spectra_contract/spectra_types.h"

#include <array>

namespace orvanta::spectrum_view {

inline constexpr owl::TColor kWhite = owl::Rgb(255, 255, 255);
inline constexpr owl::TColor kBlack = owl::Rgb(0, 0, 0);

/// One per band, the first light red. Any two differ also to eyes that lack one kind of cone, and black text
/// can be read on each.
inline constexpr std::array<owl::TColor, SPECT::BandCount> kBandColors{
    owl::Rgb(255, 128, 128), // light red
    owl::Rgb(61, 109, 255),  // blue
    owl::Rgb(4, 155, 14),    // green
    owl::Rgb(155, 104, 112), // mauve
    owl::Rgb(211, 214, 14),  // yellow
    owl::Rgb(22, 229, 192),  // mint
    owl::Rgb(243, 184, 254), // pink
    owl::Rgb(142, 143, 171), // slate
};

/// Half of each.
constexpr owl::TColor MergeColors(owl::TColor a, owl::TColor b) {
    const auto half = [](int x, int y) { return static_cast<std::uint8_t>((x + y) / 2); };
    return owl::Rgb(half(owl::Red(a), owl::Red(b)), half(owl::Green(a), owl::Green(b)),
                    half(owl::Blue(a), owl::Blue(b)));
}

/// White is mixed in twice.
constexpr owl::TColor ShadingColor(owl::TColor band) {
    return MergeColors(MergeColors(band, kWhite), kWhite);
}

} // namespace orvanta::spectrum_view
