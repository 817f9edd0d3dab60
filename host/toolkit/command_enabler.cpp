// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/command_enabler.h"

#include "host/toolkit/event_handler.h"

#include <QAbstractButton>
#include <QAction>

namespace owl {

namespace {

template <typename Target>
void Apply(const TCommandEnabler& said, Target& target) {
    if (said.Enabled()) {
        target.setEnabled(*said.Enabled());
    }
    if (said.Checked()) {
        target.setCheckable(true);
        target.setChecked(*said.Checked());
    }
    if (said.Text()) {
        target.setText(QString::fromStdString(*said.Text()));
    }
}

} // namespace

TCommandEnabler RunEnabler(TEventHandler& handler, unsigned id) {
    TCommandEnabler enabler(id);
    handler.Dispatch({{EventKind::Enabler, id}, &enabler});
    return enabler;
}

void RunEnabler(TEventHandler& handler, unsigned id, QAction& item) {
    Apply(RunEnabler(handler, id), item);
}

void RunEnabler(TEventHandler& handler, unsigned id, QAbstractButton& button) {
    Apply(RunEnabler(handler, id), button);
}

} // namespace owl
