// SPDX-License-Identifier: GPL-3.0-or-later
// Values of a map as colours.
#pragma once

#include "host/toolkit/geometry.h"
#include "spectra_contract/api.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace orvanta::chart {

inline constexpr std::size_t kPaletteColors = 256;
using Colors = std::array<owl::TColor, kPaletteColors>;

struct Palette {
    std::string_view name; ///< in settings and on the command line
    Colors colors;         ///< from the lowest value to the highest
};

/// "viridis", "cividis", "inferno", "difference" (blue, white, red), "turbo" and "grey".
ORVANTA_API std::span<const Palette> Palettes();
/// Null when there is none of that name.
ORVANTA_API const Palette* FindPalette(std::string_view name);

/// Number of the value's colour, 0 to 255; the ends of the scale stand for what lies beyond them. On a scale
/// without width its own value has the middle colour. \param value finite
ORVANTA_API std::size_t ColorIndex(double value, double low, double high);

} // namespace orvanta::chart
