// SPDX-License-Identifier: GPL-3.0-or-later
// Loading and unloading, and the objects of which a loaded module has one each.
#pragma once

#include "host/toolkit/message_module.h"
#include "host/toolkit/module_file.h"

namespace owl {
class TModule;
}

namespace orvanta::module {

/// Counts one user more. The first one clears the start-up flags, starts the window layer, which builds the
/// toolkit module object, and makes the message module. GUI thread, as everything here.
void Attach(HINSTANCE instance);

/// Counts one user less; nothing happens without users. The last one ends the message module.
void Detach();

/// Address of the pointer to the toolkit module object. The object is built at most once, by Attach or else
/// by the first call of this, then of the program's file, and lives until the library is unloaded or the
/// process ends.
owl::TModule** ModulePointer();

/// Resources and texts; null while nobody is attached.
const PModule* MessageModule();

} // namespace orvanta::module
