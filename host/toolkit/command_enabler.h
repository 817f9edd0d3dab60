// SPDX-License-Identifier: GPL-3.0-or-later
// What a command's enabler says of the menu item or tool button of that command.
#pragma once

#include "host/toolkit/export.h"

#include <optional>
#include <string>
#include <string_view>

class QAbstractButton;
class QAction;

namespace owl {

class TEventHandler;

/// Handed to an enabler, which says only what it cares for: the rest stays as it is. GUI thread.
class TCommandEnabler {
public:
    explicit TCommandEnabler(unsigned id) : id_(id) {}

    unsigned GetId() const { return id_; }

    void Enable(bool enable = true) { enabled_ = enable; }
    void SetCheck(bool check) { checked_ = check; }
    void SetText(std::string_view text) { text_ = text; }

    // What was said; nothing where the enabler left it untouched.
    const std::optional<bool>& Enabled() const { return enabled_; }
    const std::optional<bool>& Checked() const { return checked_; }
    const std::optional<std::string>& Text() const { return text_; }

private:
    unsigned id_;
    std::optional<bool> enabled_, checked_;
    std::optional<std::string> text_;
};

/// What the command's enabler says; all untouched when the handler has none.
ORVANTA_TOOLKIT_API TCommandEnabler RunEnabler(TEventHandler& handler, unsigned id);

/// The same, and does so with the menu item or button.
ORVANTA_TOOLKIT_API void RunEnabler(TEventHandler& handler, unsigned id, QAction& item);
ORVANTA_TOOLKIT_API void RunEnabler(TEventHandler& handler, unsigned id, QAbstractButton& button);

} // namespace owl
