// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/view_area.h"

#include "host/chart_view/the_child.h"

#include <QStringList>

namespace orvanta::review {

namespace {

std::size_t At(ViewKind kind) {
    return static_cast<std::size_t>(kind);
}

QString SizesText(const QSplitter& splitter) {
    QStringList sizes;
    for (const int size : splitter.sizes()) {
        sizes << QString::number(size);
    }
    return sizes.join(',');
}

QList<int> SizesOf(const QString& text) {
    QList<int> sizes;
    for (const QString& size : text.split(',')) {
        sizes << std::max(size.toInt(), 0);
    }
    return sizes;
}

} // namespace

ViewArea::ViewArea(QWidget* parent) : QSplitter(Qt::Vertical, parent), others_(new QSplitter(this)) {
    setChildrenCollapsible(false);
    others_->setChildrenCollapsible(false);
    constexpr int kHandle = 5;
    setHandleWidth(kHandle);
    others_->setHandleWidth(kHandle);
    others_->hide();
}

void ViewArea::Place(ViewKind kind, TheChild& view, std::function<void()> close) {
    auto* frame = new FramedView(view, {[this, kind] { Fill(kind); }, std::move(close)}, this);
    frames_[At(kind)] = frame;
    if (kind == ViewKind::Traces) {
        insertWidget(0, frame);
    } else {
        const bool mapsThere = frames_[At(ViewKind::Maps)] != nullptr && kind == ViewKind::Spectrum;
        others_->insertWidget(mapsThere ? 0 : others_->count(), frame);
    }
    filled_.reset();
    ShowFrames();
    ShareRoom();
}

void ViewArea::ShareRoom() {
    // Qt keeps only the proportions.
    constexpr int kTraces = 450;
    constexpr int kOthers = 550;
    setSizes(sizes_.size() == count() ? sizes_ : QList<int>{kTraces, kOthers});
    others_->setSizes(otherSizes_.size() == others_->count() ? otherSizes_
                                                             : QList<int>(others_->count(), kTraces));
}

void ViewArea::Remove(ViewKind kind) {
    delete frames_[At(kind)];
    filled_.reset();
    ShowFrames();
}

TheChild* ViewArea::ViewOf(ViewKind kind) const {
    const FramedView* frame = frames_[At(kind)];
    return frame != nullptr ? &frame->View() : nullptr;
}

void ViewArea::Arrange(Arrangement arrangement) {
    arrangement_ = arrangement;
    setOrientation(arrangement == Arrangement::TracesBeside ? Qt::Horizontal : Qt::Vertical);
    others_->setOrientation(arrangement == Arrangement::TracesAbove ? Qt::Horizontal : Qt::Vertical);
}

void ViewArea::Fill(ViewKind kind) {
    filled_ = filled_ ? std::nullopt : std::optional(kind);
    ShowFrames();
}

void ViewArea::ShowFrames() {
    bool others = false;
    for (const ViewKind kind : kViewKinds) {
        if (FramedView* frame = frames_[At(kind)]) {
            const bool shown = !filled_ || *filled_ == kind;
            frame->setVisible(shown);
            others = others || (shown && kind != ViewKind::Traces);
        }
    }
    others_->setVisible(others);
}

std::string ViewArea::Layout() const {
    return (QString::number(static_cast<int>(arrangement_)) + ';' + SizesText(*this) + ';' +
            SizesText(*others_))
        .toStdString();
}

void ViewArea::RestoreLayout(const std::string& text) {
    const QStringList parts = QString::fromStdString(text).split(';');
    constexpr int kParts = 3;
    if (parts.size() != kParts) {
        return;
    }
    const int arrangement = parts[0].toInt();
    if (arrangement >= 0 && arrangement <= static_cast<int>(Arrangement::Rows)) {
        Arrange(static_cast<Arrangement>(arrangement));
    }
    sizes_ = SizesOf(parts[1]);
    otherSizes_ = SizesOf(parts[2]);
    ShareRoom();
}

} // namespace orvanta::review
