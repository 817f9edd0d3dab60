// SPDX-License-Identifier: GPL-3.0-or-later
// Colours of maps between others, and as pixels.
#pragma once

#include "host/toolkit/geometry.h"

#include <cmath>

namespace orvanta::chart {

/// \param share of the other one, 0 to 1
inline owl::TColor Mixed(owl::TColor color, owl::TColor other, double share) {
    const auto channel = [share](std::uint8_t from, std::uint8_t to) {
        return static_cast<std::uint8_t>(std::lround(std::lerp(from, to, share)));
    };
    return owl::Rgb(channel(owl::Red(color), owl::Red(other)), channel(owl::Green(color), owl::Green(other)),
                    channel(owl::Blue(color), owl::Blue(other)));
}

/// As a picture has it: 0xAARRGGBB. \param alpha 0 to 1
inline std::uint32_t PixelOf(owl::TColor color, double alpha) {
    return static_cast<std::uint32_t>(std::lround(255 * alpha)) << 24U |
           static_cast<std::uint32_t>(owl::Red(color)) << 16U |
           static_cast<std::uint32_t>(owl::Green(color)) << 8U | owl::Blue(color);
}

/// A line of a map on a colour: darker where it is light, and the other way round.
inline owl::TColor LineOn(owl::TColor color) {
    const bool light = owl::Red(color) + 2 * owl::Green(color) + owl::Blue(color) > 4 * 128;
    return Mixed(color, light ? owl::Rgb(0, 0, 0) : owl::Rgb(255, 255, 255), 0.45);
}

} // namespace orvanta::chart
