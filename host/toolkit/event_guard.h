// SPDX-License-Identifier: GPL-3.0-or-later
// Where the exceptions of commands and event handlers end.
#pragma once

#include "host/toolkit/export.h"

#include <exception>

namespace owl {

/// Writes the reason to the log and shows it to the user.
ORVANTA_TOOLKIT_API void TellFailure(const std::exception& failure);

/// Runs what Qt calls for: Qt's event loop, which no exception may cross, goes on after a failure, which is
/// told.
template <typename Action>
void RunGuarded(const Action& action) {
    try {
        action();
    } catch (const std::exception& failure) {
        TellFailure(failure);
    }
}

} // namespace owl
