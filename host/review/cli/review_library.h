// SPDX-License-Identifier: GPL-3.0-or-later
// The library with the windows, loaded when a command needs it.
#pragma once

#include "host/review/app/review_entry.h"

namespace orvanta::cli {

/// Lets the library answer a request. \return the exit status \throws std::runtime_error when the library is
/// missing or cannot be loaded, and what the request's failure throws
int AskReview(const review::Request& request);

} // namespace orvanta::cli
