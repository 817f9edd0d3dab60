// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/form_flag_listener.h"

#include "side_bar/form_listener.h"

FormFlagListener::FormFlagListener(TFormListener* form, const char* name, ManagedFlag* flag)
    : FlagListener(name, flag), form_(form) {}

FormFlagListener::FormFlagListener(TFormListener* form, const char* name, ManagedFlag& flag)
    : FlagListener(name, flag), form_(form) {}

FormFlagListener::~FormFlagListener() = default;

void FormFlagListener::PerformAction() {
    if (form_ != nullptr) {
        form_->SomethingChanged();
    }
}
