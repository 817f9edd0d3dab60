// SPDX-License-Identifier: GPL-3.0-or-later
// Why a file was refused, in the user's language.
#pragma once

#include <exception>
#include <string>

class PModule;

namespace orvanta::signal {
class RecordingError;
}

namespace orvanta::review {

/// What the error says. Errors come in English; of files that cannot be opened or read the usual reasons and
/// remedies are told in the user's language, the others stay as they are.
/// \param messages has the texts; null for English
std::string RefusalText(const std::exception& error, const PModule* messages);

/// The same without the file: "reason (remedy)".
std::string ReasonText(const signal::RecordingError& refused, const PModule* messages);

} // namespace orvanta::review
