// SPDX-License-Identifier: GPL-3.0-or-later
// Loaded libraries and the files they came from.
#pragma once

#include "host/toolkit/export.h"

#include <string>

/// Where a library or program is loaded; null stands for the program.
using HINSTANCE = void*;

namespace owl {

/// The library or program that holds the code or data at \p symbol; null when there is none.
ORVANTA_TOOLKIT_API HINSTANCE InstanceOf(const void* symbol);

/// Absolute path of its file; empty when the system does not know.
ORVANTA_TOOLKIT_API std::string ModuleFileName(HINSTANCE instance);

} // namespace owl
