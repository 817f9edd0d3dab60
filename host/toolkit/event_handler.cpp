// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/event_handler.h"

#include "host/toolkit/response_table.h"

namespace owl {

TEventHandler::~TEventHandler() = default;

const TResponseEntry* TEventHandler::Find(const TEventKey& /*key*/) const {
    return nullptr;
}

std::optional<LPARAM> TEventHandler::Dispatch(const TEvent& event) {
    const TResponseEntry* entry = Find(event.key);
    return entry != nullptr ? std::optional(entry->respond(*this, event)) : std::nullopt;
}

bool TEventHandler::RunCommand(unsigned id) {
    return Dispatch({{EventKind::Command, id}, {}}).has_value();
}

} // namespace owl
