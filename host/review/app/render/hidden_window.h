// SPDX-License-Identifier: GPL-3.0-or-later
// A main window that nobody sees, for views that are only drawn.
#pragma once

#include "host/platform/console_gui.h"
#include "host/platform/host_platform.h"
#include "host/review/app/plain_window.h"

namespace orvanta::review {

/// Messages go to standard error, settings start as a new user's and end with the window.
class HiddenWindow final : public PlainWindow {
public:
    HiddenWindow();

    GenericPlatform* GetPlatform() const override { return &platform_; }

private:
    platform::ConsoleGui gui_;
    mutable platform::HostPlatform platform_;
};

} // namespace orvanta::review
