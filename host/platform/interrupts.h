// SPDX-License-Identifier: GPL-3.0-or-later
// Being asked to stop from outside.
#pragma once

#include "spectra_contract/api.h"

namespace orvanta::platform {

/// Catches the terminal's interrupt and the system's request to end, so that a program can stop where nothing
/// is left half done; a second one ends it at once. A file that outgrows its limit becomes a failing write.
ORVANTA_API void CatchInterrupts();

/// True once there was one.
ORVANTA_API bool WasInterrupted();

} // namespace orvanta::platform
