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
    owl::Rgb(255, 128, 128), owl::Rgb(0, 158, 115), owl::Rgb(86, 180, 233), owl::Rgb(240, 228, 66),
    owl::Rgb(148, 103, 189), owl::Rgb(230, 159, 0), owl::Rgb(0, 114, 178),  owl::Rgb(204, 121, 167)};

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
