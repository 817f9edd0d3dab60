// SPDX-License-Identifier: GPL-3.0-or-later
// A main window that nobody sees, for views that are only drawn.
#pragma once

#include "host/chart_view/global_window.h"
#include "host/chart_view/side_bar_manager.h"
#include "host/platform/console_gui.h"
#include "host/platform/host_platform.h"

namespace orvanta::review {

/// Messages go to standard error, settings start as a new user's and end with the window.
class HiddenWindow final : public GlobalWindow {
public:
    HiddenWindow();

    GenericPlatform* GetPlatform() const override { return &platform_; }
    std::string GetErrorStr() const override { return "Error"; }
    bool IsQuiet() const override { return true; }
    void SetMessageText(const std::string& /*text*/) override {}
    SideBarManager& GetSideBar() override { return sideBar_; }

private:
    class NoSideBar final : public SideBarManager {
    public:
        void AddPanel(QWidget& /*panel*/, bool /*show*/, bool /*activate*/) override {}
        void RemovePanel(QWidget& /*panel*/) override {}
        void Update() override {}
    };

    platform::ConsoleGui gui_;
    mutable platform::HostPlatform platform_;
    NoSideBar sideBar_;
};

} // namespace orvanta::review
