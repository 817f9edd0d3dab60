// SPDX-License-Identifier: GPL-3.0-or-later
// Ranges as they are typed into two edits.
#pragma once

#include <string>

namespace orvanta::spectrum_view {

/// Bytes of a typed number that are read.
inline constexpr int kNumberBytes = 63;

/// A number as std::atof reads it, with the decimal sign of the current C locale: what follows the number is
/// ignored, and a text without one counts as 0.
struct TypedNumber {
    /// Not a number counts as 0, infinity as the largest number.
    explicit TypedNumber(const std::string& text);

    double value = 0;
    bool isNan = false; ///< the text is "nan", which is neither above nor below any number
    bool whole = false; ///< the text is this number and nothing else
};

struct TypedRange {
    TypedNumber lower;
    TypedNumber upper;

    bool IsWhole() const { return lower.whole && upper.whole; }
    bool HasNan() const { return lower.isNan || upper.isNan; }
    bool IsNegative() const { return lower.value < 0; }
    bool IsReversed() const { return upper.value < lower.value; }
};

/// \p value in the current C locale with one decimal, at least \p width characters, cut to kNumberBytes.
std::string OneDecimal(double value, int width = 0);

/// \p value in the current C locale with up to six significant digits, as short as they allow.
std::string ShortText(double value);

} // namespace orvanta::spectrum_view
