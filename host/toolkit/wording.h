// SPDX-License-Identifier: GPL-3.0-or-later
// Sentences that come in English, in the user's language.
#pragma once

#include "host/toolkit/export.h"

#include <span>
#include <string>

class PModule;

namespace owl {

/// A sentence with its key in the message store; "%s" stands for a number, a name or what the system says.
struct Wording {
    const char* key;
    const char* english;
};

/// \p english in the user's language where it is one of the wordings, with what it was said of; else as it
/// is. "line N: ", with which it may begin, is a wording of its own, key "line". \param module has the texts;
/// null for English
ORVANTA_TOOLKIT_API std::string InUsersWords(const PModule* module, const char* section,
                                             std::span<const Wording> wordings, const std::string& english);

} // namespace owl
