// SPDX-License-Identifier: GPL-3.0-or-later
// Changed events brought to their file, with the user's help where that is needed.
#pragma once

#include "host/toolkit/window_handle.h"

namespace orvanta::review {

class EventEditor;

/// When another program has changed the table, the user chooses whether to overwrite it, to load it and lose
/// the changes here, or to save elsewhere; after a failure he may try again or choose another file.
/// \return whether the events are in a file now
bool SaveEvents(HWND parent, EventEditor& events);

/// Asks for another table, which the events are kept in from then on. \return whether they are in it now
bool SaveEventsAs(HWND parent, EventEditor& events);

/// Asks what becomes of changes, then for another table, whose events take the place of the user's and are
/// kept there from then on. What was repaired in it, or why it is refused, is told.
void OpenEvents(HWND parent, EventEditor& events);

/// Asks what becomes of changes that are not saved. When the program is interrupted they are saved.
/// \return false when the user wants to go on with them
bool AskToSaveEvents(HWND parent, EventEditor& events);

} // namespace orvanta::review
