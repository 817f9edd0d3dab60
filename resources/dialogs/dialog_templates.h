// SPDX-License-Identifier: GPL-3.0-or-later
// The layouts of the module's dialogs.
#pragma once

namespace orvanta::resources {

/// From now on the dialogs of these numbers look as designed.
void RegisterDialogs();

/// Takes the layouts away, before the module is unloaded.
void ForgetDialogs();

} // namespace orvanta::resources
