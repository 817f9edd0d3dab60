// SPDX-License-Identifier: GPL-3.0-or-later
// Keys, mouse and wheel of the trace view.
#include "host/review/app/traces/trace_scales.h"
#include "host/review/app/traces/trace_view_impl.h"
#include "host/toolkit/event_guard.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <cmath>
#include <cstdlib>

namespace orvanta::review {

namespace {

/// How far the mouse moves before a click is a drag, pixels.
constexpr int kDragDistance = 4;
constexpr double kNotch = 120;
/// Of the page: what a notch of the wheel scrolls by.
constexpr double kWheelShare = 0.1;

owl::TPoint PointOf(const QPointF& position) {
    const QPoint whole = position.toPoint();
    return {whole.x(), whole.y()};
}

} // namespace

void TraceView::Impl::MoveToOverview(int x) {
    const TraceLayout layout = Layout();
    if (layout.overview.IsEmpty()) {
        return;
    }
    const double share = static_cast<double>(x - layout.overview.left) / layout.overview.Width();
    MoveTo(share * model.Total() - model.State().window.duration / 2);
}

void TraceView::Impl::Press(const owl::TPoint& point, Qt::MouseButton button,
                            Qt::KeyboardModifiers modifiers) {
    const TraceLayout layout = Layout();
    dragFrom = point;
    dragWindow = model.State().window;
    dragged = false;
    drag = Drag::None;
    menuAt.reset();
    if (button == Qt::LeftButton && layout.overview.Contains(point)) {
        drag = Drag::Overview;
        MoveToOverview(point.x);
    } else if (button == Qt::LeftButton && layout.names.Contains(point)) {
        const std::optional<int> line = layout.LineAt(point.y);
        const std::string name = line ? model.Channels()[model.LineOf(layout, *line)].name : std::string();
        Select(name == model.Selected() ? std::string() : name);
    } else if (button == Qt::RightButton && !layout.plot.Contains(point)) {
        PopUp(layout, point);
    } else if (button == Qt::MiddleButton) {
        drag = Drag::Pan;
    } else if (layout.plot.Contains(point) &&
               (button == Qt::RightButton || modifiers.testFlag(Qt::AltModifier))) {
        drag = Drag::Zoom;
    } else if (button == Qt::LeftButton) {
        const bool measure =
            layout.plot.Contains(point) &&
            (mode == Mode::Measure || (modifiers & (Qt::ControlModifier | Qt::ShiftModifier)));
        drag = measure ? Drag::Measure : Drag::Mark;
    }
}

void TraceView::Impl::Move(const owl::TPoint& point) {
    dragged = dragged || std::abs(point.x - dragFrom.x) >= kDragDistance ||
              std::abs(point.y - dragFrom.y) >= kDragDistance;
    const TraceLayout layout = Layout();
    switch (drag) {
    case Drag::Overview:
        MoveToOverview(point.x);
        break;
    case Drag::Pan:
        MoveTo(dragWindow.start - (point.x - dragFrom.x) * layout.SecondsPerPixel());
        break;
    case Drag::Zoom:
        if (dragged) {
            overlay->SetCursor({CursorInput::Kind::Rectangle, dragFrom, point, {}, {}});
        }
        break;
    case Drag::Mark:
    case Drag::Measure:
        if (dragged) {
            ReadOut(StretchTo(layout, point));
        }
        break;
    case Drag::None:
        ReadOut(CursorAt(layout, point));
        break;
    }
}

void TraceView::Impl::Release(const owl::TPoint& point, Qt::MouseButton button) {
    const TraceLayout layout = Layout();
    const Drag ended = std::exchange(drag, Drag::None);
    const auto [left, right] = std::minmax(dragFrom.x, point.x);
    const auto [top, bottom] = std::minmax(dragFrom.y, point.y);
    switch (ended) {
    case Drag::Zoom:
        overlay->SetCursor({});
        if (dragged) {
            ZoomInto({left, top, right + 1, bottom + 1});
        } else if (button == Qt::RightButton) {
            PopUp(layout, point);
        }
        break;
    case Drag::Mark:
        if (dragged && std::abs(point.x - dragFrom.x) >= kDragDistance) {
            OfferState(layout.TimeAt(left), layout.TimeAt(right), point);
        } else {
            Click(layout, point);
        }
        break;
    default:
        break; // what was measured stays until the mouse moves on
    }
}

void TraceView::Impl::Wheel(const owl::TPoint& point, double notches, Qt::KeyboardModifiers modifiers) {
    const TraceLayout layout = Layout();
    const TraceWindow& window = model.State().window;
    if (modifiers & Qt::ControlModifier) {
        const double share =
            layout.plot.Width() > 0
                ? std::clamp((layout.TimeAt(point.x) - window.start) / window.duration, 0.0, 1.0)
                : 0;
        SetDuration(NextStep(kPageLengths, window.duration, notches < 0), share);
    } else if (modifiers & Qt::ShiftModifier) {
        StepGain(notches > 0);
    } else {
        MoveBy(-notches * window.duration * kWheelShare);
    }
}

bool TraceView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        // The view's own keys come before those of menus.
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const std::optional<unsigned> command = CommandOfKey(key.key(), key.modifiers());
        if (command && (*command != kCmCancel || impl_->CanCancel())) {
            event->accept();
            return true;
        }
    }
    return TheChild::event(event);
}

void TraceView::keyPressEvent(QKeyEvent* event) {
    const std::optional<unsigned> command = CommandOfKey(event->key(), event->modifiers());
    if (!command || !IsCreated()) {
        TheChild::keyPressEvent(event);
        return;
    }
    event->accept();
    owl::RunGuarded([&] { RunCommand(*command); });
}

void TraceView::mousePressEvent(QMouseEvent* event) {
    event->accept();
    owl::RunGuarded([&] { impl_->Press(PointOf(event->position()), event->button(), event->modifiers()); });
}

void TraceView::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
    owl::RunGuarded([&] { impl_->Move(PointOf(event->position())); });
}

void TraceView::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    owl::RunGuarded([&] { impl_->Release(PointOf(event->position()), event->button()); });
}

void TraceView::mouseDoubleClickEvent(QMouseEvent* event) {
    const owl::TPoint point = PointOf(event->position());
    const EventTag* tag = TagAt(impl_->tags, impl_->Layout(), point);
    if (event->button() != Qt::LeftButton || tag == nullptr) {
        mousePressEvent(event);
        return;
    }
    event->accept();
    owl::RunGuarded([&] {
        impl_->drag = Impl::Drag::None;
        impl_->SelectEvent(tag->input->index);
        impl_->EditEvent();
    });
}

void TraceView::leaveEvent(QEvent* event) {
    if (impl_->overlay != nullptr && impl_->drag == Impl::Drag::None &&
        impl_->overlay->Cursor().kind == CursorInput::Kind::Cursor) {
        impl_->overlay->SetCursor({});
    }
    TheChild::leaveEvent(event);
}

void TraceView::wheelEvent(QWheelEvent* event) {
    event->accept();
    // With Shift or Alt some systems turn the wheel sideways.
    const QPoint delta = event->angleDelta();
    const double notches = (delta.y() != 0 ? delta.y() : delta.x()) / kNotch;
    if (notches != 0) {
        owl::RunGuarded([&] { impl_->Wheel(PointOf(event->position()), notches, event->modifiers()); });
    }
}

void TraceView::resizeEvent(QResizeEvent* event) {
    TheChild::resizeEvent(event);
    if (impl_->overlay != nullptr) {
        impl_->overlay->setGeometry(rect());
        impl_->Refresh();
    }
}

} // namespace orvanta::review
