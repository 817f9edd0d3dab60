// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/idle_enablers.h"

#include "host/toolkit/command_enabler.h"

#include <QAbstractButton>
#include <QAbstractEventDispatcher>

namespace owl {

IdleEnablers::IdleEnablers(TEventHandler& handler, QObject* parent) : QObject(parent), handler_(handler) {
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &IdleEnablers::Run);
}

void IdleEnablers::Add(unsigned id, QAbstractButton& button) {
    entries_.push_back({id, &button});
}

void IdleEnablers::Run() {
    std::erase_if(entries_, [](const Entry& entry) { return entry.button.isNull(); });
    for (const Entry& entry : entries_) {
        RunEnabler(handler_, entry.id, *entry.button);
    }
}

} // namespace owl
