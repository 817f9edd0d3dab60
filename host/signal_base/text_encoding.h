// SPDX-License-Identifier: GPL-3.0-or-later
// Text of unknown encoding made valid UTF-8.
#pragma once

#include "spectra_contract/api.h"

#include <string>
#include <string_view>

namespace orvanta::signal {

/// True for well-formed UTF-8 (no overlong forms, no surrogates, at most U+10FFFF).
ORVANTA_API bool IsUtf8(std::string_view bytes);

/// The text as valid UTF-8. Well-formed UTF-8 is taken as it is (a byte order mark is dropped). Otherwise
/// text in which some character is well-formed multi-byte UTF-8 counts as damaged UTF-8: each malformed byte
/// becomes U+FFFD. All other text is read as Windows-1252, the superset of Latin-1 that is found in
/// recordings, whose five unassigned bytes become U+FFFD. \p repaired, when given, says whether the text was
/// not UTF-8.
ORVANTA_API std::string ToUtf8(std::string_view bytes, bool* repaired = nullptr);

/// \p bytes as UTF-8 in double quotes, fit for one line of a message: control characters are blanks, and what
/// goes beyond 40 bytes is "...".
ORVANTA_API std::string Quoted(std::string_view bytes);

} // namespace orvanta::signal
