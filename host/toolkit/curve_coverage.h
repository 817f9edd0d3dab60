// SPDX-License-Identifier: GPL-3.0-or-later
// Which pixels a smooth curve covers, and by how much.
#pragma once

#include "host/toolkit/export.h"
#include "host/toolkit/geometry.h"

#include <cstdint>
#include <functional>
#include <span>

namespace owl {

/// Pixels of one column, from the top downwards.
struct CoveredColumn {
    int x;
    int top;
    std::span<const std::uint8_t> coverage; ///< 0 none to 255 all of the pixel
};

/// Covers pixels by a curve that joins the points, which go from left to right, with a round pen. Every pixel
/// is met once, so that a curve that runs up and down a column lies no heavier on it. The time it takes grows
/// with the pixels that are covered, hardly with the points.
/// \param points finite; pixels
/// \param width of the pen, pixels
/// \param clip only these pixels
ORVANTA_TOOLKIT_API void CoverCurve(std::span<const TPointF> points, double width, const TRect& clip,
                                    const std::function<void(const CoveredColumn&)>& use);

} // namespace owl
