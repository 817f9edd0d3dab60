// SPDX-License-Identifier: GPL-3.0-or-later
// Texts that must not grow longer than a buffer.
#pragma once

#include "host/toolkit/export.h"

#include <string>

namespace owl {

/// The longest beginning of a UTF-8 text of at most so many bytes that ends with a whole character.
ORVANTA_TOOLKIT_API std::string CutAt(std::string text, std::size_t bytes);

} // namespace owl
