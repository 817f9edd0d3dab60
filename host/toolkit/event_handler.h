// SPDX-License-Identifier: GPL-3.0-or-later
// Whatever answers commands, messages and window events.
#pragma once

#include "host/toolkit/event.h"
#include "host/toolkit/export.h"

#include <optional>

namespace owl {

struct TResponseEntry;

/// Finds in its response table the method that answers an event. GUI thread.
class ORVANTA_TOOLKIT_API TEventHandler {
public:
    TEventHandler() = default;
    virtual ~TEventHandler();
    TEventHandler(const TEventHandler&) = delete;
    TEventHandler& operator=(const TEventHandler&) = delete;

    /// The entry that answers; null when there is none. A class searches its own entries in their order, then
    /// asks its base.
    virtual const TResponseEntry* Find(const TEventKey& key) const;

    /// Runs the method that answers; the handler may be gone afterwards.
    /// \return its result, 0 for one without; nothing when no entry answers
    std::optional<LPARAM> Dispatch(const TEvent& event);

    /// \return whether an entry answered
    bool RunCommand(unsigned id);
};

} // namespace owl
