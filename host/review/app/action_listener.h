// SPDX-License-Identifier: GPL-3.0-or-later
// Work that follows a shared flag.
#pragma once

#include "spectra_contract/events.h"

#include <functional>
#include <utility>

namespace orvanta::review {

/// Runs an action whenever the flag is set, for as long as it lives.
class ActionListener final : public FlagListener {
public:
    ActionListener(const char* name, ManagedFlag& flag, std::function<void()> action)
        : FlagListener(name, flag), action_(std::move(action)) {}

    void PerformAction() override { action_(); }

private:
    std::function<void()> action_;
};

} // namespace orvanta::review
