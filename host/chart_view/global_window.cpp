// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/global_window.h"

#include "host/chart_view/side_bar_manager.h"
#include "host/chart_view/the_child.h"
#include "spectra_contract/platform.h"

SideBarManager::~SideBarManager() = default;

GlobalWindow::GlobalWindow() {
    setFocusPolicy(Qt::NoFocus); // keys are for the views in it
}

GlobalWindow::~GlobalWindow() = default;

UserType* GlobalWindow::GetUser() const {
    return GetPlatform()->GetUser();
}

TheChild* GlobalWindow::GetActiveChild() const {
    return activeChild_;
}

owl::TMenu* GlobalWindow::GetMenu() const {
    return activeChild_ ? &activeChild_->GetMenu() : nullptr;
}

void GlobalWindow::SetActiveChild(TheChild* child) {
    activeChild_ = child;
}

void GlobalWindow::PointAtTime(const XTime& /*time*/) {}

void GlobalWindow::PointAtChannel(const std::string& /*name*/) {}
