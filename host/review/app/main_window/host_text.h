// SPDX-License-Identifier: GPL-3.0-or-later
// The application's own texts in the user's language.
#pragma once

#include <QString>

#include <string>

namespace orvanta::review {

/// A text of section HOST of the message store; the built-in one without the module or without the text.
std::string HostText(const char* key, const char* builtIn);
QString HostQText(const char* key, const char* builtIn);

} // namespace orvanta::review
