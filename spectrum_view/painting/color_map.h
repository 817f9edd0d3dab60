// SPDX-License-Identifier: GPL-3.0-or-later
// Values as colours.
#pragma once

#include "host/toolkit/geometry.h"
#include "spectrum_view/painting/vertical_range.h"

#include <array>
#include <cstdint>

namespace orvanta::spectrum_view {

inline constexpr std::size_t kMapColors = 256;

/// From dark violet over blue and green to light yellow, evenly: each step looks as large as the others and
/// is lighter than the one before, so that the order can be read in grey and by every kind of colour vision,
/// too. A Bézier curve through OKLab (Ottosson 2020) with four control points, divided by its length.
const std::array<owl::TColor, kMapColors>& ColorMap();

/// The value's place in the map: the range's ends and what lies beyond them are the first and the last
/// colour. \param value finite \param range drawable
std::size_t MapIndex(const VerticalRange& range, double value);

/// A colour as a pixel, opaque.
constexpr std::uint32_t PixelOf(owl::TColor color) {
    return 0xFF000000U | static_cast<std::uint32_t>(owl::Red(color)) << 16U |
           static_cast<std::uint32_t>(owl::Green(color)) << 8U | owl::Blue(color);
}

} // namespace orvanta::spectrum_view
