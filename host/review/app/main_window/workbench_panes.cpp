// SPDX-License-Identifier: GPL-3.0-or-later
// How the panes of the window are looked at and reached.
#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/analysis_runner.h"
#include "host/review/app/main_window/document.h"
#include "host/review/app/main_window/documents.h"
#include "host/review/app/main_window/event_dock.h"
#include "host/review/app/main_window/main_window.h"
#include "host/review/app/main_window/menus.h"
#include "host/review/app/main_window/open_views.h"
#include "host/review/app/main_window/pane_ring.h"
#include "host/review/app/main_window/panel_beside.h"
#include "host/review/app/main_window/shell.h"
#include "host/review/app/main_window/view_pictures.h"
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

Document* Workbench::Current() const {
    return documents_->Current();
}
void Workbench::AskForFile() {
    documents_->AskForFile();
}
void Workbench::OpenFile(const std::string& path) {
    documents_->Open(path);
}
void Workbench::CloseFile() {
    documents_->Close();
}
void Workbench::Quit() {
    shell_->close();
}
std::vector<std::string> Workbench::RecentPaths() const {
    return documents_->Recent().Paths();
}
void Workbench::ClearRecent() {
    documents_->Recent().Clear();
}
bool Workbench::HasDocument() const {
    return documents_->Current() != nullptr;
}
bool Workbench::CanShow(ViewKind kind) const {
    return views_->CanShow(kind);
}
bool Workbench::IsShown(ViewKind kind) const {
    return views_->IsShown(kind);
}
void Workbench::Show(ViewKind kind, bool show) {
    if (show) {
        analyses_->Show(kind);
    } else {
        views_->Hide(kind);
    }
}
bool Workbench::IsActive(ViewKind kind) const {
    return views_->IsActive(kind);
}
void Workbench::Activate(ViewKind kind) {
    views_->Activate(kind);
}
bool Workbench::ShowsEvents() const {
    return Current() != nullptr && eventList_->IsWanted();
}
void Workbench::ShowEvents(bool show) {
    if (Current() != nullptr) {
        eventList_->Want(show);
        if (!show) {
            views_->Focus();
        }
    }
}
Arrangement Workbench::GetArrangement() const {
    return middle_->Views().GetArrangement();
}
void Workbench::Arrange(Arrangement arrangement) {
    views_->Arrange(arrangement);
}
bool Workbench::UsesRegression() const {
    return analyses_->UsesRegression();
}
void Workbench::UseRegression(bool use) {
    analyses_->UseRegression(use);
}
bool Workbench::HasActiveView() const {
    return pictures_->HasView();
}
void Workbench::SavePicture() {
    pictures_->Save();
}
void Workbench::PrintPicture() {
    pictures_->Print();
}
void Workbench::CopyPicture() {
    pictures_->Copy();
}
bool Workbench::CanAnalyse() const {
    return analyses_->CanAnalyse();
}
void Workbench::NewAnalysis() {
    analyses_->New();
}
void Workbench::Recompute() {
    analyses_->Recompute();
}

} // namespace orvanta::review
