// SPDX-License-Identifier: GPL-3.0-or-later
// Texts of the trace view in the user's language.
#pragma once

#include <string>

namespace orvanta::review {

/// A text of section TRACES of the message store.
std::string TraceText(const char* key, const char* builtIn);
/// With "%1" replaced.
std::string TraceText(const char* key, const char* builtIn, const std::string& first);

} // namespace orvanta::review
