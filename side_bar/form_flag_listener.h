// SPDX-License-Identifier: GPL-3.0-or-later
// A panel that is told when a shared flag is set.
#pragma once

#include "spectra_contract/api.h"
#include "spectra_contract/events.h"

class TFormListener;

/// Tells a panel that something changed, each time the flag is set. GUI thread.
class ORVANTA_API FormFlagListener : public FlagListener {
public:
    /// \param form not owned; must outlive this. Null is told nothing
    /// \param name under which this is registered with the flag
    FormFlagListener(TFormListener* form, const char* name, ManagedFlag* flag);
    FormFlagListener(TFormListener* form, const char* name, ManagedFlag& flag);
    FormFlagListener(const FormFlagListener&) = default;
    FormFlagListener& operator=(const FormFlagListener&) = default;
    FormFlagListener& operator=(FormFlagListener&&) = default;
    ~FormFlagListener() override;

    void PerformAction() override;

private:
    TFormListener* form_;
};
