// SPDX-License-Identifier: GPL-3.0-or-later
// The events that macros are checked against when they are loaded.
#pragma once

#include "spectra_contract/api.h"

class EventsManager;

namespace orvanta::spectral {

/// Offers the events of a recording as the context while it lives. Not owned: the events must outlive it.
/// GUI thread only.
class ORVANTA_API MacroEventContext {
public:
    /// \param events null offers nothing
    explicit MacroEventContext(const EventsManager* events);
    ~MacroEventContext();
    MacroEventContext(const MacroEventContext&) = delete;
    MacroEventContext& operator=(const MacroEventContext&) = delete;

private:
    const EventsManager* events_;
    friend ORVANTA_API const EventsManager* GetMacroEventContext();
};

/// The events offered last of those still offered, or null.
ORVANTA_API const EventsManager* GetMacroEventContext();

} // namespace orvanta::spectral
