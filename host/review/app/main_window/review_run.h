// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta review: the application from its start to its end.
#pragma once

#include "host/review/app/review_entry.h"

namespace orvanta::review {

/// \return the exit status \throws cli::UsageError without a display, or when the log cannot be written
int RunReview(const ReviewRequest& request);

} // namespace orvanta::review
