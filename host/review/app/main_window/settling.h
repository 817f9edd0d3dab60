// SPDX-License-Identifier: GPL-3.0-or-later
// Waiting for a window that shows everything.
#pragma once

#include <functional>

namespace orvanta::review {

/// Runs events until everything is computed, read and painted that a window shows; for a minute at most,
/// unless one computation takes longer.
/// \param isSettled whether nothing is to be waited for but painting
void LetItSettle(const std::function<bool()>& isSettled);

} // namespace orvanta::review
