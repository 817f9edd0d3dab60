// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/open_views.h"

#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/document.h"
#include "host/review/app/main_window/main_window.h"
#include "host/review/app/module_bridge.h"
#include "host/review/app/traces/trace_view.h"
#include "host/toolkit/event_guard.h"

#include <QPointer>

#include <utility>

namespace orvanta::review {

OpenViews::OpenViews(MainWindow& window, ModuleBridge* bridge) : window_(window), bridge_(bridge) {}

bool OpenViews::CanShow(ViewKind kind) const {
    return kind == ViewKind::Traces || bridge_ != nullptr;
}

bool OpenViews::IsShown(ViewKind kind) const {
    return window_.Views().ViewOf(kind) != nullptr;
}

TheChild* OpenViews::Make(ViewKind kind, Document& document) {
    if (kind == ViewKind::Traces) {
        return new TraceView(window_, document.Recording(), document.Events());
    }
    if (IsMaps(kind)) {
        return bridge_->MakeMapsView(window_, document.Recording(), document.Analyses(),
                                     kind == ViewKind::Heads);
    }
    return bridge_->MakeSpectrumView(window_, document.Recording(), document.Analyses());
}

void OpenViews::Open(ViewKind kind, Document& document, std::function<void()> close) {
    if (CanShow(kind) && !IsShown(kind)) {
        if (IsMaps(kind)) {
            Close(kind == ViewKind::Maps ? ViewKind::Heads : ViewKind::Maps);
        }
        TheChild* view = Make(kind, document);
        view->Create();
        if (kind != ViewKind::Traces) {
            bridge_->FollowMontage(*view, document.Recording());
        }
        window_.Views().Place(kind, *view, std::move(close));
    }
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
}

void OpenViews::FollowMontage(const Document& document) {
    for (const ViewKind kind : kAnalysisViews) {
        if (TheChild* view = window_.Views().ViewOf(kind)) {
            bridge_->FollowMontage(*view, document.Recording());
        }
    }
}

void OpenViews::Refresh(std::span<const ViewKind> kinds) {
    // Of the window, also while it is not active.
    const QPointer<QWidget> focused(window_.window()->focusWidget());
    owl::RunGuarded([&] { // told once, since what failed for one view fails for the next
        for (const ViewKind kind : kinds) {
            // A view may go while another computes.
            if (TheChild* view = window_.Views().ViewOf(kind)) {
                bridge_->RefreshView(*view);
            }
        }
    });
    if (focused) {
        focused->setFocus();
    }
}

TraceView* OpenViews::Traces() const {
    return static_cast<TraceView*>(window_.Views().ViewOf(ViewKind::Traces));
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

} // namespace orvanta::review
