// SPDX-License-Identifier: GPL-3.0-or-later
// Changed events brought to their file, with the user's help where that is needed.
#pragma once

#include "host/toolkit/window_handle.h"

namespace orvanta::review {

class EventEditor;

/// Asks before it replaces a table that another program has changed; after a failure the user may try again
/// or choose another file. \return whether the events are in a file now
bool SaveEvents(HWND parent, EventEditor& events);

/// Asks what becomes of changes that are not saved. When the program is interrupted they are saved.
/// \return false when the user wants to go on with them
bool AskToSaveEvents(HWND parent, EventEditor& events);

} // namespace orvanta::review
