// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/settings/event_context.h"

#include <vector>

namespace orvanta::spectral {

namespace {

/// Those that live and offer something, in the order of their making.
std::vector<const MacroEventContext*>& Offers() {
    static std::vector<const MacroEventContext*> offers;
    return offers;
}

} // namespace

MacroEventContext::MacroEventContext(const EventsManager* events) : events_(events) {
    if (events_ != nullptr) {
        Offers().push_back(this);
    }
}

MacroEventContext::~MacroEventContext() {
    std::erase(Offers(), this);
}

const EventsManager* GetMacroEventContext() {
    return Offers().empty() ? nullptr : Offers().back()->events_;
}

} // namespace orvanta::spectral
