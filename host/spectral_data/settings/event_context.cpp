// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/settings/event_context.h"

namespace orvanta::spectral {

namespace {

const EventsManager*& Context() {
    static const EventsManager* context = nullptr;
    return context;
}

} // namespace

void SetMacroEventContext(const EventsManager* events) {
    Context() = events;
}

const EventsManager* GetMacroEventContext() {
    return Context();
}

} // namespace orvanta::spectral
