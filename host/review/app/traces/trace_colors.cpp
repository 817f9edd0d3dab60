// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_colors.h"

#include <cmath>

namespace orvanta::review {

namespace {

using owl::Rgb;

/// Rec. 709 luma, 0 to 255.
double Luma(owl::TColor color) {
    return 0.2126 * owl::Red(color) + 0.7152 * owl::Green(color) + 0.0722 * owl::Blue(color);
}

constexpr std::array kOnLight{Rgb(0x1D, 0x3B, 0x66), Rgb(0x1C, 0x74, 0x66), Rgb(0xB0, 0x2E, 0x45),
                              Rgb(0x8A, 0x55, 0x1C), Rgb(0x5C, 0x48, 0xA6), Rgb(0x4B, 0x58, 0x66)};
constexpr std::array kOnDark{Rgb(0xA8, 0xC8, 0xF2), Rgb(0x7B, 0xD3, 0xBE), Rgb(0xF3, 0x8E, 0x9B),
                             Rgb(0xE0, 0xB2, 0x7E), Rgb(0xBD, 0xAE, 0xF6), Rgb(0xB3, 0xBF, 0xCB)};

} // namespace

owl::TColor Blended(owl::TColor top, owl::TColor below, double share) {
    const auto mixed = [share](std::uint8_t over, std::uint8_t under) {
        return static_cast<std::uint8_t>(std::lround(over * share + under * (1 - share)));
    };
    return Rgb(mixed(owl::Red(top), owl::Red(below)), mixed(owl::Green(top), owl::Green(below)),
               mixed(owl::Blue(top), owl::Blue(below)));
}

owl::TColor TextOn(owl::TColor background) {
    return Luma(background) > 140 ? Rgb(0, 0, 0) : Rgb(255, 255, 255);
}

TraceColors ColorsFor(owl::TColor base, owl::TColor window, owl::TColor text) {
    const bool dark = Luma(base) < 128;
    TraceColors colors;
    colors.background = base;
    colors.margin = window;
    colors.text = text;
    colors.faint = Blended(text, window, 0.68);
    colors.grid = Blended(text, base, dark ? 0.11 : 0.09);
    colors.labelledGrid = Blended(text, base, dark ? 0.22 : 0.2);
    colors.baseline = Blended(text, base, 0.05);
    colors.accent = dark ? Rgb(0x6C, 0xB0, 0xFF) : Rgb(0x1B, 0x6E, 0xD0);
    colors.ownEvent = dark ? Rgb(0xF0, 0xB0, 0x4A) : Rgb(0xA8, 0x5A, 0x00);
    colors.fileEvent = dark ? Rgb(0x7D, 0xB4, 0x8F) : Rgb(0x2F, 0x7D, 0x4F);
    colors.badEvent = dark ? Rgb(0xF0, 0x7A, 0x70) : Rgb(0xC2, 0x36, 0x2B);
    colors.gap = Blended(text, base, dark ? 0.16 : 0.12);
    colors.bad = Blended(text, base, dark ? 0.38 : 0.34);
    colors.groups = dark ? kOnDark : kOnLight;
    return colors;
}

} // namespace orvanta::review
