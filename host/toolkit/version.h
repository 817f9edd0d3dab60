// SPDX-License-Identifier: GPL-3.0-or-later
// Version of the window layer.
#pragma once

#include "host/toolkit/export.h"

#include <cstdint>

namespace owl {

/// The window layer's version: the bits from 20 up name the release with which a module must agree.
ORVANTA_TOOLKIT_API std::uint32_t OWLGetVersion();

} // namespace owl
