// SPDX-License-Identifier: GPL-3.0-or-later
// Waiting for a window that shows everything.
#pragma once

namespace orvanta::review {

class Workbench;

/// Runs events until everything is computed, read and painted that the window shows; for a minute at most,
/// unless one computation takes longer.
void LetItSettle(const Workbench& workbench);

} // namespace orvanta::review
