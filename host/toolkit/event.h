// SPDX-License-Identifier: GPL-3.0-or-later
// Events as they reach a handler.
#pragma once

#include "host/toolkit/geometry.h"
#include "host/toolkit/window_handle.h"

#include <cstdint>
#include <variant>

namespace owl {

class TCommandEnabler;

/// Each kind has numbers of its own: a command and a message may share theirs.
enum class EventKind : std::uint8_t { Command, Enabler, Message, Window };

/// Number of an event of kind EventKind::Window.
enum class WindowEvent : unsigned {
    Size,
    SetFocus,
    KillFocus,
    KeyDown,
    LButtonDown,
    LButtonUp,
    LButtonDblClk,
    MouseMove,
    MouseWheel,
};

/// What a response table is searched for.
struct TEventKey {
    EventKind kind;
    unsigned id;

    bool operator==(const TEventKey&) const = default;
};

// How a window has its size.
constexpr unsigned kSizeRestored = 0;
constexpr unsigned kSizeMinimized = 1;
constexpr unsigned kSizeMaximized = 2;

// Keys and buttons held down during a mouse event, added.
constexpr unsigned kMkLButton = 0x01;
constexpr unsigned kMkRButton = 0x02;
constexpr unsigned kMkShift = 0x04;
constexpr unsigned kMkControl = 0x08;
constexpr unsigned kMkMButton = 0x10;

/// Set in the flags of a key event when the key repeats itself; the low 8 bits are its scan code.
constexpr unsigned kKeyRepeats = 0x4000;

struct MessageArgs {
    WPARAM wParam;
    LPARAM lParam;
};
struct SizeArgs {
    unsigned type; ///< kSizeRestored, ...
    TSize size;
};
struct FocusArgs {
    HWND other; ///< which lost or got the focus; may be null
};
struct KeyArgs {
    unsigned key; ///< virtual key
    unsigned repeat;
    unsigned flags;
};
struct MouseArgs {
    unsigned modKeys; ///< sum of kMk constants
    TPoint point;     ///< in the window
};
struct WheelArgs {
    unsigned modKeys;
    int delta; ///< 120 a notch, positive away from the user
    TPoint point;
};

/// One event: a command has no arguments besides its number.
struct TEvent {
    TEventKey key;
    std::variant<std::monostate, TCommandEnabler*, MessageArgs, SizeArgs, FocusArgs, KeyArgs, MouseArgs,
                 WheelArgs>
        args;
};

} // namespace owl
