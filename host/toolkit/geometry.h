// SPDX-License-Identifier: GPL-3.0-or-later
// Points, sizes, rectangles and colours, in logical pixels, whole ones but for the points of curves.
#pragma once

#include "host/toolkit/export.h"

#include <cstdint>

/// Arguments of a message between windows.
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;

namespace owl {

/// A colour as 0x00BBGGRR.
using TColor = std::uint32_t;

constexpr TColor Rgb(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    return static_cast<TColor>(red) | static_cast<TColor>(green) << 8U | static_cast<TColor>(blue) << 16U;
}
constexpr std::uint8_t Red(TColor color) {
    return static_cast<std::uint8_t>(color);
}
constexpr std::uint8_t Green(TColor color) {
    return static_cast<std::uint8_t>(color >> 8U);
}
constexpr std::uint8_t Blue(TColor color) {
    return static_cast<std::uint8_t>(color >> 16U);
}

struct TPoint {
    int x = 0;
    int y = 0;

    bool operator==(const TPoint&) const = default;
};

/// A place between pixels: the pixel of TPoint{x, y} reaches from x to x + 1, its middle is x + 0.5.
struct TPointF {
    double x = 0;
    double y = 0;

    bool operator==(const TPointF&) const = default;
};

struct TSize {
    int cx = 0;
    int cy = 0;

    bool operator==(const TSize&) const = default;
};

/// Left and top edge belong to it, right and bottom edge do not.
struct TRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    constexpr int Width() const { return right - left; }
    constexpr int Height() const { return bottom - top; }
    constexpr bool IsEmpty() const { return right <= left || bottom <= top; }
    constexpr bool Contains(const TPoint& point) const {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }
    /// True when they share a pixel.
    constexpr bool Touches(const TRect& other) const {
        return !IsEmpty() && !other.IsEmpty() && left < other.right && other.left < right &&
               top < other.bottom && other.top < bottom;
    }
    /// Grown by so many pixels on the left and right, top and bottom.
    constexpr TRect InflatedBy(int dx, int dy) const {
        return {left - dx, top - dy, right + dx, bottom + dy};
    }

    bool operator==(const TRect&) const = default;
};

} // namespace owl

/// number × numerator / denominator in 64 bits, rounded to nearest, half away from zero; -1 when the
/// denominator is 0 or the result does not fit.
ORVANTA_TOOLKIT_API int MulDiv(int number, int numerator, int denominator);
