// SPDX-License-Identifier: GPL-3.0-or-later
// Why a file was refused, in the user's language.
#pragma once

#include "host/toolkit/export.h"
#include "host/toolkit/wording.h"

#include <span>
#include <string>

class PModule;

namespace owl {

/// A reason or a remedy, which comes in English, as the section REASONS of the message store has it; as it is
/// where that has not. What may be wrong with any file is known here.
/// \param own what may be wrong with the caller's kind of file \param messages has the texts; null for
/// English
ORVANTA_TOOLKIT_API std::string ReasonInUsersWords(const PModule* messages, std::span<const Wording> own,
                                                   const std::string& english);

} // namespace owl
