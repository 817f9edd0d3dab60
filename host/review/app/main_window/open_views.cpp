// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/open_views.h"

#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/document.h"
#include "host/review/app/main_window/documents.h"
#include "host/review/app/main_window/main_window.h"
#include "host/review/app/main_window/text_setting.h"
#include "host/review/app/main_window/work_gui.h"
#include "host/review/app/module_bridge.h"
#include "host/review/app/traces/trace_view.h"
#include "host/toolkit/event_guard.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/spectra_mgr.h"

#include <QPointer>

namespace orvanta::review {

namespace {

constexpr const char* kHidden = "HiddenViews";
constexpr const char* kLayout = "ViewLayout";

/// Both kinds of maps have one place.
unsigned Bit(ViewKind kind) {
    return 1U << static_cast<unsigned>(IsMaps(kind) ? ViewKind::Maps : kind);
}

unsigned HiddenKinds(const GenericPlatform& platform) {
    return static_cast<unsigned>(platform.GetUser()->GetInt(kHostSection, kHidden, 0));
}

} // namespace

OpenViews::OpenViews(MainWindow& window, const Documents& documents, WorkGui& gui, ModuleBridge* bridge)
    : window_(window), documents_(documents), gui_(gui), bridge_(bridge) {}

bool OpenViews::CanShow(ViewKind kind) const {
    return documents_.Current() != nullptr && (kind == ViewKind::Traces || bridge_ != nullptr);
}

bool OpenViews::IsShown(ViewKind kind) const {
    return window_.Views().ViewOf(kind) != nullptr;
}

TheChild* OpenViews::Make(ViewKind kind) {
    const Document& document = *documents_.Current();
    if (kind == ViewKind::Traces) {
        return new TraceView(window_, document.Recording(), document.Events());
    }
    if (IsMaps(kind)) {
        return bridge_->MakeMapsView(window_, document.Recording(), document.Analyses(),
                                     kind == ViewKind::Heads);
    }
    return bridge_->MakeSpectrumView(window_, document.Recording(), document.Analyses());
}

void OpenViews::Open(ViewKind kind) {
    if (CanShow(kind) && !IsShown(kind)) {
        if (IsMaps(kind)) {
            Close(kind == ViewKind::Maps ? ViewKind::Heads : ViewKind::Maps);
        }
        TheChild* view = Make(kind);
        view->Create();
        if (kind != ViewKind::Traces) {
            bridge_->FollowMontage(*view, documents_.Current()->Recording());
        }
        window_.Views().Place(kind, *view, [this, kind] { Hide(kind); });
        ++generation_;
    }
}

bool OpenViews::IsWanted(ViewKind kind) const {
    const ViewKind maps = documents_.Current()->HasMapsOnHeads() ? ViewKind::Heads : ViewKind::Maps;
    return (HiddenKinds(*window_.GetPlatform()) & Bit(kind)) == 0 && (!IsMaps(kind) || kind == maps);
}

void OpenViews::OpenWanted() {
    const bool analysed = documents_.Current()->Analyses().GetMain() != nullptr;
    for (const ViewKind kind : kViewKinds) {
        if (kind == ViewKind::Traces ? IsWanted(kind) || !analysed : IsWanted(kind) && analysed) {
            Open(kind);
        }
    }
}

void OpenViews::Reopen(ViewKind kind) {
    if (IsShown(kind)) {
        const std::optional<SpectrumLook> look = Look();
        Close(kind);
        Open(kind);
        if (look) {
            Choose(*look);
        }
    }
}

void OpenViews::Want(ViewKind kind, bool wanted) {
    const unsigned hidden = HiddenKinds(*window_.GetPlatform());
    window_.GetPlatform()->GetUser()->PutInt(
        kHostSection, kHidden, static_cast<int>(wanted ? hidden & ~Bit(kind) : hidden | Bit(kind)));
}

void OpenViews::Hide(ViewKind kind) {
    gui_.WhenIdle([this, kind] {
        Close(kind);
        Want(kind, false);
        if (window_.GetActiveChild() != nullptr) {
            return;
        }
        for (const ViewKind other : kViewKinds) {
            if (IsShown(other)) {
                return Activate(other);
            }
        }
    });
}

void OpenViews::Close(ViewKind kind) {
    if (TheChild* view = window_.Views().ViewOf(kind)) {
        view->Destroy();
        delete view; // and its tool bar and panes, which stand in the frame
        window_.Views().Remove(kind);
    }
}

void OpenViews::CloseAll() {
    for (const ViewKind kind : kViewKinds) {
        Close(kind);
    }
    told_.clear();
}

void OpenViews::FollowMontage() {
    for (const ViewKind kind : kAnalysisViews) {
        if (TheChild* view = window_.Views().ViewOf(kind)) {
            bridge_->FollowMontage(*view, documents_.Current()->Recording());
        }
    }
}

void OpenViews::Refresh(std::span<const ViewKind> kinds) {
    told_.clear();
    FollowUp(kinds);
}

void OpenViews::FollowUp(std::span<const ViewKind> kinds) {
    // Of the window, also while it is not active.
    const QPointer<QWidget> focused(window_.window()->focusWidget());
    try { // around all, since what failed for one view fails for the next
        for (const ViewKind kind : kinds) {
            // A view may go while another computes.
            if (TheChild* view = window_.Views().ViewOf(kind)) {
                bridge_->RefreshView(*view);
            }
        }
        told_.clear();
    } catch (const std::exception& failure) {
        if (std::exchange(told_, failure.what()) != failure.what()) {
            owl::TellFailure(failure);
        }
    }
    if (focused) {
        focused->setFocus();
    }
}

void OpenViews::TellOfAnalysis() {
    if (const TheChild* view = window_.Views().ViewOf(ViewKind::Spectrum)) {
        bridge_->TellOfAnalysis(*view);
    }
}

std::optional<SpectrumLook> OpenViews::Look() const {
    const TheChild* view = window_.Views().ViewOf(ViewKind::Spectrum);
    return view != nullptr ? std::optional(bridge_->LookOf(*view)) : std::nullopt;
}

void OpenViews::Choose(const SpectrumLook& look) {
    if (TheChild* view = window_.Views().ViewOf(ViewKind::Spectrum)) {
        bridge_->Choose(*view, look);
    }
}

TraceView* OpenViews::Traces() const {
    return static_cast<TraceView*>(window_.Views().ViewOf(ViewKind::Traces));
}

bool OpenViews::IsActive(ViewKind kind) const {
    return IsShown(kind) && window_.GetActiveChild() == window_.Views().ViewOf(kind);
}

void OpenViews::Activate(ViewKind kind) {
    if (IsShown(kind) && !gui_.IsBusy()) {
        ViewArea& views = window_.Views();
        TheChild& view = *views.ViewOf(kind);
        if (views.IsFilled() && !view.isVisible()) {
            views.ShowAll();
        }
        view.SetFocus();
    }
}

void OpenViews::FocusAnalysis() {
    for (const ViewKind kind : kAnalysisViews) {
        if (TheChild* view = window_.Views().ViewOf(kind)) {
            view->SetFocus();
            return;
        }
    }
}

void OpenViews::Focus() {
    if (TheChild* traces = window_.Views().ViewOf(ViewKind::Traces)) {
        traces->SetFocus();
    } else {
        window_.SetFocus();
    }
}

void OpenViews::Arrange(Arrangement arrangement) {
    window_.Views().Arrange(arrangement);
    StoreLayout();
}

void OpenViews::RestoreLayout() {
    window_.Views().RestoreLayout(ReadText(*window_.GetPlatform(), kLayout));
}

void OpenViews::StoreLayout() const {
    WriteText(*window_.GetPlatform(), kLayout, window_.Views().Layout());
}

void OpenViews::StoreSettings() const {
    for (const ViewKind kind : kViewKinds) {
        if (const TheChild* view = window_.Views().ViewOf(kind)) {
            view->StoreUserSettings();
        }
    }
    StoreLayout();
}

} // namespace orvanta::review
