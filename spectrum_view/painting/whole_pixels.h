// SPDX-License-Identifier: GPL-3.0-or-later
// From exact to whole pixels.
#pragma once

#include <algorithm>

namespace orvanta::spectrum_view {

/// Farther out nothing is told apart: a curve that leaves its slot leaves the screen here, too.
inline constexpr double kFarPixels = 1e6;

/// Truncated toward zero, kept within ±kFarPixels; 0 for what is not a number.
constexpr int WholePixels(double pixels) {
    if (pixels != pixels) {
        return 0;
    }
    return static_cast<int>(std::clamp(pixels, -kFarPixels, kFarPixels));
}

} // namespace orvanta::spectrum_view
