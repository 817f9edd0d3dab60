// SPDX-License-Identifier: GPL-3.0-or-later
// Texts about montages in the user's language.
#pragma once

#include <QString>

#include <string>

namespace orvanta::signal {
class RecordingError;
}

namespace orvanta::review {

/// A text of section MONTAGES of the message store, else the built-in one.
QString MontageWords(const char* key, const char* builtIn);

/// "Line 3: reason (remedy)", without the file.
QString ReasonText(const signal::RecordingError& error);

} // namespace orvanta::review
