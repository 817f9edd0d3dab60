// SPDX-License-Identifier: GPL-3.0-or-later
// Texts about events in the user's language.
#pragma once

#include "spectra_contract/time.h"

#include <cstddef>
#include <string>

namespace orvanta::review {

/// "Add Artifact".
std::string AddText(const std::string& label);
/// "Change Artifact".
std::string ChangeText(const std::string& label);
/// "Delete Artifact".
std::string DeleteText(const std::string& label);
/// "Delete 3 Events".
std::string DeleteText(std::size_t events);

/// Shortest text of a time in seconds, with "." and without an exponent: "12.5".
std::string SecondsOf(const XTime& time);

} // namespace orvanta::review
