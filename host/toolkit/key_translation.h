// SPDX-License-Identifier: GPL-3.0-or-later
// Virtual key numbers: keys as windows know them, whatever the keyboard's layout.
#pragma once

#include "host/toolkit/export.h"

#include <Qt>

#include <cstdint>

namespace owl {

/// A pressed key as Qt reports it.
struct KeyPress {
    std::uint32_t scanCode = 0; ///< native: an evdev code plus 8; 0 when the platform has none
    int key = 0;                ///< Qt::Key
    Qt::KeyboardModifiers modifiers;
};

/// The virtual key: digits 0x30 to 0x39 by their place on the keyboard, so that neither Shift nor the layout
/// changes them; letters 0x41 to 0x5A by the layout's letter, by place when it writes no Latin; 0 for a key
/// that has no number.
ORVANTA_TOOLKIT_API unsigned VirtualKey(const KeyPress& press);

} // namespace owl
