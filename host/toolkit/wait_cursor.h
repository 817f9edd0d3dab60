// SPDX-License-Identifier: GPL-3.0-or-later
// The cursor that says wait.
#pragma once

#include "host/toolkit/export.h"

/// Number of the system's wait cursor.
constexpr unsigned kIdcWait = 32514;

namespace owl {

/// Where cursors are shown; replaceable in tests.
class ORVANTA_TOOLKIT_API CursorDisplay {
public:
    virtual ~CursorDisplay();
    /// Shows the cursor of this number over all windows, above the one shown so far.
    virtual void Show(unsigned cursor) = 0;
    /// Goes back to the one shown before.
    virtual void Restore() = 0;
};

/// From now on cursors are shown there; null for the default, the application's override cursor (nothing
/// without a GUI application). Answers what was set before. Call it only while no cursor is shown.
ORVANTA_TOOLKIT_API CursorDisplay* ReplaceCursorDisplay(CursorDisplay* display);

/// Number of the cursor that is shown; 0 when it is the windows' own.
ORVANTA_TOOLKIT_API unsigned CurrentCursor();

/// Shows the wait cursor while it lives. GUI thread; may be nested.
class ORVANTA_TOOLKIT_API WaitCursor {
public:
    WaitCursor();
    ~WaitCursor();
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace owl
