// SPDX-License-Identifier: GPL-3.0-or-later
// Colours of maps between others, and as pixels.
#pragma once

#include "host/toolkit/geometry.h"

#include <algorithm>
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

/// Mixes two colours of pixels, without alpha. \param share of the other one, 0 to 256
inline std::uint32_t Blend(std::uint32_t color, std::uint32_t other, std::uint32_t share) {
    constexpr std::uint32_t kRedBlue = 0xFF00FFU;
    constexpr std::uint32_t kGreen = 0x00FF00U;
    const std::uint32_t rest = 256 - share;
    return (((color & kRedBlue) * rest + (other & kRedBlue) * share) >> 8U & kRedBlue) |
           (((color & kGreen) * rest + (other & kGreen) * share) >> 8U & kGreen);
}

/// How much of a pixel stripes cover where values are extrapolated, 0 to 1.
/// \param across device pixels, measured across the stripes \param pixelRatio device pixels to a logical one
inline float StripeCoverage(float across, float pixelRatio) {
    constexpr float kPeriod = 6; // logical pixels
    constexpr float kWidth = 2;
    const float period = kPeriod * pixelRatio;
    const float from = across - period * std::floor(across / period) - period / 2;
    return std::clamp(kWidth * pixelRatio / 2 - std::abs(from) + 0.5F, 0.0F, 1.0F);
}
/// The other colour's share in a stripe.
inline constexpr double kStripeShare = 0.6;

/// A line of a map on a colour: darker where it is light, and the other way round.
inline owl::TColor LineOn(owl::TColor color) {
    const bool light = owl::Red(color) + 2 * owl::Green(color) + owl::Blue(color) > 4 * 128;
    return Mixed(color, light ? owl::Rgb(0, 0, 0) : owl::Rgb(255, 255, 255), 0.45);
}

} // namespace orvanta::chart
