// SPDX-License-Identifier: GPL-3.0-or-later
// Which texts of a slot there is room for.
#pragma once

#include "host/toolkit/dc.h"
#include "host/toolkit/geometry.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvanta::spectrum_view {

/// Size of a text in the font of the slot.
using TextExtent = std::function<owl::TSize(std::string_view)>;

/// A text and the rectangle that it covers.
struct PlacedText {
    owl::TRect rect;
    std::string text;
    int above = 0; ///< empty rows of the line over the rectangle

    bool operator==(const PlacedText&) const = default;
};
using PlacedTexts = std::vector<PlacedText>;

/// The text with its top at \p top, its left, centre or right at \p x, moved sideways into \p area where it
/// would leave it.
PlacedText Placed(std::string text, int x, int top, owl::TextAlign align, const owl::TRect& area,
                  const TextExtent& extent);

/// The rows of a line that digits and capitals cover, less than the line, which has room for accents above
/// and descenders below.
struct DigitRows {
    int above = 0;  ///< rows without a pixel over the digits
    int height = 0; ///< rows from there to the last one with a pixel
};

/// Of the common faces: a descender takes a sixth of the line or more below, an accent a tenth.
DigitRows DigitRowsOf(int lineHeight);

/// As Placed, for a text of digits and capitals only: the top of the digits is at \p top.
PlacedText PlacedDigits(std::string text, int x, int top, owl::TextAlign align, const owl::TRect& area,
                        const TextExtent& extent);

/// True when every text lies in \p area, \p gap columns are free between each two side by side, and none
/// covers one of \p taken.
bool Fits(const PlacedTexts& texts, const owl::TRect& area, int gap, std::span<const owl::TRect> taken);

/// Keeps the groups there is room for. \param groups the most important first; one that lies in part outside
/// \p area or over itself, \p taken or one before is emptied as a whole
/// \param gap columns free between two texts
void KeepFitting(const std::vector<PlacedTexts*>& groups, const owl::TRect& area, int gap,
                 std::vector<owl::TRect> taken);

/// Draws the texts in the selected font and colour.
void PaintTexts(owl::TDC& dc, const PlacedTexts& texts);

} // namespace orvanta::spectrum_view
