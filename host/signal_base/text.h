// SPDX-License-Identifier: GPL-3.0-or-later
// Small operations on the text fields of recording files; none depends on a locale.
#pragma once

#include "spectra_contract/api.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvanta::signal {

/// Without blanks, tabs, line ends and NUL bytes at both ends.
ORVANTA_API std::string_view Trim(std::string_view text);
/// ASCII letters in lower case; all other bytes stay.
ORVANTA_API std::string LowerCase(std::string_view text);
/// Equal but for the case of ASCII letters.
ORVANTA_API bool SameText(std::string_view a, std::string_view b);
/// Takes the next line off \p text, without its end (LF, CR LF or CR).
ORVANTA_API std::string_view TakeLine(std::string_view& text);
/// A finite decimal number with "." and nothing else (blanks around it, a sign and an exponent are fine).
ORVANTA_API std::optional<double> ParseNumber(std::string_view text);
/// The same, but one decimal comma is taken as a point: for what others wrote, where the repair can be told.
struct RepairedNumber {
    double value = 0;
    bool comma = false; ///< there was one
};
ORVANTA_API std::optional<RepairedNumber> ParseNumberOrComma(std::string_view text);
/// A whole number in decimal digits and nothing else (blanks around it and a sign are fine).
ORVANTA_API std::optional<std::int64_t> ParseWhole(std::string_view text);

} // namespace orvanta::signal
