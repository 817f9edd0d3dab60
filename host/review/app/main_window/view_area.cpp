// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/view_area.h"

#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/panel_beside.h"

#include <algorithm>

namespace orvanta::review {

namespace {

std::size_t At(ViewKind kind) {
    return static_cast<std::size_t>(kind);
}

/// Of the first of two; nothing when there are not two to be seen.
std::optional<double> ShareOf(const QSplitter& splitter) {
    const QList<int> sizes = splitter.sizes();
    if (sizes.size() != 2 || sizes[0] <= 0 || sizes[1] <= 0) {
        return std::nullopt;
    }
    return std::clamp(static_cast<double>(sizes[0]) / (sizes[0] + sizes[1]), kLeastShare, 1 - kLeastShare);
}

void GiveShare(QSplitter& splitter, double share) {
    if (splitter.count() == 2) {
        constexpr int kWhole = 100'000; // Qt keeps only the proportions
        const int first = qRound(share * kWhole);
        splitter.setSizes({first, kWhole - first});
    }
}

} // namespace

ViewArea::ViewArea(QWidget* parent) : QSplitter(Qt::Vertical, parent), others_(new QSplitter(this)) {
    constexpr int kHandle = 5;
    for (QSplitter* splitter : {static_cast<QSplitter*>(this), others_}) {
        splitter->setChildrenCollapsible(false);
        splitter->setHandleWidth(kHandle);
    }
    connect(this, &QSplitter::splitterMoved, this, [this] {
        double& share = layout_.Shares().traces;
        share = ShareOf(*this).value_or(share);
    });
    connect(others_, &QSplitter::splitterMoved, this, [this] {
        double& share = layout_.Shares().spectrum;
        share = ShareOf(*others_).value_or(share);
    });
    others_->hide();
}

void ViewArea::Place(ViewKind kind, TheChild& view, std::function<void()> close) {
    auto* frame = new FramedView(view, {[this, kind] { Fill(kind); }, std::move(close)}, layout_.panel, this);
    frames_[At(kind)] = frame;
    if (kind == ViewKind::Traces) {
        insertWidget(0, frame);
    } else {
        others_->insertWidget(kind == ViewKind::Spectrum ? 0 : others_->count(), frame);
    }
    ShowAll();
}

void ViewArea::Remove(ViewKind kind) {
    delete frames_[At(kind)];
    ShowAll();
}

TheChild* ViewArea::ViewOf(ViewKind kind) const {
    const FramedView* frame = frames_[At(kind)];
    return frame != nullptr ? &frame->View() : nullptr;
}

std::vector<FramedView*> ViewArea::Shown() const {
    std::vector<FramedView*> shown;
    for (const ViewKind kind : kViewKinds) {
        if (frames_[At(kind)] != nullptr && (!filled_ || *filled_ == kind)) {
            shown.push_back(frames_[At(kind)]);
        }
    }
    return shown;
}

PanelBeside* ViewArea::SideBar() const {
    for (const FramedView* frame : Shown()) {
        if (frame->Panel().Panel() != nullptr) {
            return &frame->Panel();
        }
    }
    return nullptr;
}

void ViewArea::Arrange(Arrangement arrangement) {
    layout_.arrangement = arrangement;
    setOrientation(arrangement == Arrangement::TracesBeside ? Qt::Horizontal : Qt::Vertical);
    others_->setOrientation(arrangement == Arrangement::TracesAbove ? Qt::Horizontal : Qt::Vertical);
    ShareRoom();
}

void ViewArea::Fill(ViewKind kind) {
    filled_ = filled_ ? std::nullopt : std::optional(kind);
    ShowFrames();
}

void ViewArea::ShowAll() {
    filled_.reset();
    ShowFrames();
}

void ViewArea::ShowFrames() {
    const std::vector<FramedView*> shown = Shown();
    for (const QPointer<FramedView>& frame : frames_) {
        if (frame != nullptr) {
            frame->setVisible(std::ranges::find(shown, frame.data()) != shown.end());
            frame->ShowFilled(IsFilled());
        }
    }
    others_->setVisible(std::ranges::any_of(
        shown, [this](const FramedView* frame) { return frame->parentWidget() == others_; }));
    ShareRoom();
}

void ViewArea::ShareRoom() {
    const PaneShares& shares = layout_.Shares();
    GiveShare(*this, shares.traces);
    GiveShare(*others_, shares.spectrum);
}

void ViewArea::RestoreLayout(const std::string& text) {
    if (const std::optional<PaneLayout> layout = PaneLayoutOf(text)) {
        layout_ = *layout;
        Arrange(layout_.arrangement);
    }
}

void ViewArea::resizeEvent(QResizeEvent* event) {
    QSplitter::resizeEvent(event);
    ShareRoom();
}

} // namespace orvanta::review
