// SPDX-License-Identifier: GPL-3.0-or-later
// The events that macros are checked against when they are loaded.
#pragma once

#include "spectra_contract/api.h"

class EventsManager;

namespace orvanta::spectral {

/// Sets the events of the recording at hand; null for none. Not owned: whoever sets them takes them back
/// before they go. GUI thread only.
ORVANTA_API void SetMacroEventContext(const EventsManager* events);
/// What was set last, or null.
ORVANTA_API const EventsManager* GetMacroEventContext();

} // namespace orvanta::spectral
