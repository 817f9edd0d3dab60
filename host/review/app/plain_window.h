// SPDX-License-Identifier: GPL-3.0-or-later
// A main window of nothing but its views.
#pragma once

#include "host/chart_view/global_window.h"
#include "host/chart_view/side_bar_manager.h"

namespace orvanta::review {

/// Without a message bar and without panels; work goes on without progress.
class PlainWindow : public GlobalWindow {
public:
    std::string GetErrorStr() const final { return "Error"; }
    bool IsQuiet() const final { return true; }
    void SetMessageText(const std::string& /*text*/) final {}
    SideBarManager& GetSideBar() final { return sideBar_; }

private:
    class NoSideBar final : public SideBarManager {
    public:
        void AddPanel(QWidget& /*panel*/, bool /*show*/, bool /*activate*/) override {}
        void RemovePanel(QWidget& /*panel*/) override {}
        void Update() override {}
    };

    NoSideBar sideBar_;
};

} // namespace orvanta::review
