// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps one test's bands and entity from the next.
#pragma once

#include "spectra_contract/spect_globals.h"

namespace orvanta::test {

/// Sets the shared settings to their defaults while it lives, and again when it goes.
class GlobalsGuard {
public:
    GlobalsGuard() { SPECT::GetGlobals() = SPECT::Globals(); }
    ~GlobalsGuard() { SPECT::GetGlobals() = SPECT::Globals(); }
    GlobalsGuard(const GlobalsGuard&) = delete;
    GlobalsGuard& operator=(const GlobalsGuard&) = delete;
};

} // namespace orvanta::test
