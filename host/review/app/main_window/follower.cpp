// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/follower.h"

#include "host/review/app/action_listener.h"
#include "host/review/app/main_window/document.h"
#include "host/review/app/main_window/documents.h"
#include "host/review/app/main_window/open_views.h"
#include "host/review/app/main_window/work_gui.h"
#include "host/review/app/traces/trace_view.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"

#include <QApplication>
#include <QWidget>

namespace orvanta::review {

namespace {

std::string MontageOf(const Document& document) {
    return document.Recording().GetTraceInfo()->GetMtg().GetName();
}

} // namespace

Follower::Follower(Documents& documents, OpenViews& views, const WorkGui& gui, const QWidget& middle)
    : documents_(documents), views_(views), gui_(gui), middle_(middle) {}

Follower::~Follower() = default;

void Follower::Open() {
    const Document& document = *documents_.Current();
    montageChanged_ = std::make_unique<ActionListener>("Follower", document.Recording().GetMontageFlag(),
                                                       [this] { MontageChanged(); });
    montage_ = MontageOf(document);
}

void Follower::Close() {
    montageChanged_.reset();
}

void Follower::Look() {
    if (const Document* document = documents_.Current();
        document != nullptr && !gui_.IsBusy() && montage_ != MontageOf(*document)) {
        document->Recording().GetMontageFlag().Set(); // a view changed it without telling
    }
    FollowAnalyses();
}

AnalysisState Follower::State() const {
    return AnalysisStateOf(documents_.Current()->Analyses(), middle_.palette());
}

bool Follower::IsUpToDate() const {
    const Document* document = documents_.Current();
    return !refreshQueued_ &&
           (document == nullptr ||
            (montage_ == MontageOf(*document) && State() == analyses_ && views_.Generation() == followed_));
}

void Follower::FollowAnalyses() {
    const Document* document = documents_.Current();
    if (document == nullptr || gui_.IsBusy() || QApplication::activeModalWidget() != nullptr) {
        return;
    }
    const AnalysisState state = State();
    if (state == analyses_ && views_.Generation() == followed_) {
        return;
    }
    if (document->Analyses().GetMain() != nullptr) {
        views_.OpenWanted();
    }
    if (state.main != analyses_.main) {
        views_.TellOfAnalysis();
    }
    analyses_ = state;
    followed_ = views_.Generation();
    if (TraceView* traces = views_.Traces()) {
        traces->SetShades(EpochShades(document->Analyses(), document->Recording(), middle_.palette()));
    }
    views_.FollowUp(kMapsViews);
    documents_.KeepSession();
}

void Follower::MontageChanged() {
    montage_ = MontageOf(*documents_.Current());
    views_.FollowMontage();
    QueueRefresh();
}

void Follower::QueueRefresh() {
    if (refreshQueued_) {
        return;
    }
    refreshQueued_ = true;
    QMetaObject::invokeMethod(
        &queue_,
        [this] {
            refreshQueued_ = false;
            documents_.KeepMarks();
            const Document* document = documents_.Current();
            if (document != nullptr && document->Analyses().GetMain() != nullptr && !gui_.IsBusy()) {
                views_.FollowUp(kAnalysisViews);
            }
        },
        Qt::QueuedConnection);
}

} // namespace orvanta::review
