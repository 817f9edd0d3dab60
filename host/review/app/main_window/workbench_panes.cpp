// SPDX-License-Identifier: GPL-3.0-or-later
// How the panes of the window are looked at and reached.
#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/document.h"
#include "host/review/app/main_window/main_window.h"
#include "host/review/app/main_window/menus.h"
#include "host/review/app/main_window/pane_ring.h"
#include "host/review/app/main_window/panel_beside.h"
#include "host/review/app/main_window/shell.h"
#include "host/review/app/main_window/workbench.h"

namespace orvanta::review {

namespace {

/// Of the view that is seen with one; null without.
PanelBeside* SideBarOf(const ViewArea& area) {
    for (const FramedView* frame : area.Shown()) {
        if (frame->Panel().Panel() != nullptr) {
            return &frame->Panel();
        }
    }
    return nullptr;
}

} // namespace

void Workbench::FillOrShowAll() {
    ViewArea& area = middle_->Views();
    const TheChild* active = middle_->GetActiveChild();
    if (area.IsFilled()) {
        area.ShowAll();
    } else if (active != nullptr) {
        for (const ViewKind kind : kViewKinds) {
            if (area.ViewOf(kind) == active) {
                area.Fill(kind);
            }
        }
    }
    menus_->Update();
}

bool Workbench::IsFilled() const {
    return middle_->Views().IsFilled();
}

bool Workbench::HasSideBar() const {
    return SideBarOf(middle_->Views()) != nullptr;
}

bool Workbench::IsSideBarShown() const {
    const PanelBeside* sideBar = SideBarOf(middle_->Views());
    return sideBar != nullptr && sideBar->IsShown();
}

void Workbench::ShowSideBar(bool show) {
    if (PanelBeside* sideBar = SideBarOf(middle_->Views())) {
        sideBar->Show(show);
    }
    menus_->Update();
}

void Workbench::GoToPane(bool next) {
    review::GoToPane(*shell_, *middle_, next);
}

} // namespace orvanta::review
