// SPDX-License-Identifier: GPL-3.0-or-later
// Menus by their number.
#pragma once

#include "host/toolkit/menu.h"

namespace owl {

/// From now on menus of this number have these items, which are not copied; none forgets the number, which a
/// library that is going to be unloaded does for what it registered.
ORVANTA_TOOLKIT_API void RegisterMenuTemplate(unsigned number, std::span<const MenuItem> items);

/// None for a number that is not registered.
ORVANTA_TOOLKIT_API std::span<const MenuItem> MenuTemplate(unsigned number);

} // namespace owl
