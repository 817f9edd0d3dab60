// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/window.h"

#include "host/toolkit/event_guard.h"
#include "host/toolkit/focus_tracker.h"
#include "host/toolkit/painter_dc.h"
#include "host/toolkit/qt_painting.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPointer>
#include <QScopeGuard>

#include <utility>
#include <vector>

namespace owl {

namespace {

QEvent::Type StepEvent() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

QEvent::Type MessageEvent() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

struct PostedMessage final : QEvent {
    PostedMessage(unsigned number, const MessageArgs& arguments)
        : QEvent(MessageEvent()), id(number), args(arguments) {}

    unsigned id;
    MessageArgs args;
};

/// Adds the windows that no other one is around within the widget. Handlers may end them.
void AddWindowsIn(const QWidget& widget, std::vector<QPointer<TWindow>>& windows) {
    for (QObject* child : widget.children()) {
        if (auto* window = dynamic_cast<TWindow*>(child)) {
            windows.emplace_back(window);
        } else if (const auto* other = qobject_cast<const QWidget*>(child)) {
            AddWindowsIn(*other, windows);
        }
    }
}

std::vector<QPointer<TWindow>> WindowsIn(const QWidget& widget) {
    std::vector<QPointer<TWindow>> windows;
    AddWindowsIn(widget, windows);
    return windows;
}

} // namespace

TWindow::TWindow(TWindow* parent, TModule* module) : QWidget(parent), module_(module) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    FocusTracker::Instance();
}

TWindow::~TWindow() {
    if (FocusTracker* tracker = FocusTracker::Instance()) {
        tracker->Forget(*this);
    }
}

TModule* TWindow::GetModule() const {
    if (module_ != nullptr) {
        return module_;
    }
    for (const QWidget* around = parentWidget(); around != nullptr; around = around->parentWidget()) {
        if (const auto* window = dynamic_cast<const TWindow*>(around)) {
            return window->GetModule();
        }
    }
    return nullptr;
}

void TWindow::Create() {
    if (life_ == Life::Constructed) {
        life_ = Life::Created;
        SetupWindow();
    }
}

void TWindow::SetupWindow() {
    for (const QPointer<TWindow>& window : WindowsIn(*this)) {
        if (window) {
            window->Create();
        }
    }
}

void TWindow::Destroy(int retVal) {
    if (life_ == Life::Destroyed) {
        return;
    }
    for (const QPointer<TWindow>& window : WindowsIn(*this)) {
        if (window && window->IsCreated()) {
            window->Destroy(retVal);
        }
    }
    life_ = Life::Destroyed;
    damage_.reset();
    if (FocusTracker* tracker = FocusTracker::Instance()) {
        tracker->Forget(*this);
    }
    hide();
}

void TWindow::setVisible(bool visible) {
    // Set up before Qt lays the window out and sizes it.
    if (visible) {
        Create();
    }
    QWidget::setVisible(visible);
}

TRect TWindow::GetClientRect() const {
    return FromQRect(rect());
}

void TWindow::SetFocus() {
    setFocus(Qt::OtherFocusReason);
}

void TWindow::EnableWindow(bool enable) {
    QWidget* focused = window()->focusWidget();
    if (!enable && focused != nullptr && (focused == this || isAncestorOf(focused))) {
        focused->clearFocus(); // else Qt hands it to the next window in the frame
    }
    setEnabled(enable);
}

LPARAM TWindow::SendMessage(unsigned id, WPARAM wParam, LPARAM lParam) {
    return Dispatch({{EventKind::Message, id}, MessageArgs{wParam, lParam}}).value_or(0);
}

void TWindow::PostMessage(unsigned id, WPARAM wParam, LPARAM lParam) {
    QCoreApplication::postEvent(this, new PostedMessage(id, {wParam, lParam}));
}

bool TWindow::event(QEvent* event) {
    if (event->type() == StepEvent()) {
        stepQueued_ = false;
        Step();
        return true;
    }
    if (event->type() == MessageEvent()) {
        if (life_ != Life::Destroyed) {
            const auto& message = static_cast<const PostedMessage&>(*event);
            RunGuarded([&] { SendMessage(message.id, message.args.wParam, message.args.lParam); });
        }
        return true;
    }
    return QWidget::event(event);
}

void TWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Create(); // shown by its parent
    if (picture_.Fits(Surface())) {
        QueueStep();
    } else {
        Invalidate();
    }
}

void TWindow::Draw(TDC& /*dc*/, bool /*erase*/, TRect& /*rect*/) {}

BackingImage::Surface TWindow::Surface() const {
    return {{width(), height()}, devicePixelRatioF(), palette().color(backgroundRole())};
}

void TWindow::Invalidate(bool erase) {
    InvalidateRect(GetClientRect(), erase);
}

void TWindow::InvalidateRect(const TRect& rect, bool erase) {
    if (life_ == Life::Destroyed) {
        return;
    }
    if (damage_) {
        const QRect both = ToQRect(damage_->rect).united(ToQRect(rect));
        damage_ = {FromQRect(both), damage_->erase || erase};
    } else {
        damage_ = {rect, erase};
    }
    QueueStep();
}

void TWindow::QueueStep() {
    if (!stepQueued_ && !drawing_ && damage_) {
        stepQueued_ = true;
        QCoreApplication::postEvent(this, new QEvent(StepEvent()), Qt::LowEventPriority);
    }
}

void TWindow::UpdateWindow() {
    const QPointer<TWindow> alive(this);
    Step();
    if (alive) {
        repaint();
    }
}

void TWindow::Step() {
    if (drawing_ || !damage_ || !IsCreated() || !isVisible()) {
        return; // what is damaged stays so until a step can draw it
    }
    BackingImage::Damage damage = *std::exchange(damage_, std::nullopt);
    damage.rect = FromQRect(ToQRect(damage.rect).intersected(rect()));
    if (damage.rect.IsEmpty()) {
        return;
    }
    // Everything on the stack: the window may end in Draw.
    const QPointer<TWindow> alive(this);
    QImage picture = picture_.Begin(Surface(), damage);
    drawing_ = true;
    {
        const auto done = qScopeGuard([&] {
            if (alive) {
                drawing_ = false;
            }
        });
        QPainter painter(&picture);
        PainterDC dc(painter);
        TRect rect = damage.rect;
        RunGuarded([&] { Draw(dc, damage.erase, rect); }); // what it drew before is shown
    }
    if (!alive) {
        return;
    }
    picture_.Finish(picture, damage.rect);
    update(ToQRect(damage.rect));
    QueueStep();
}

void TWindow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const BackingImage::Surface surface = Surface();
    picture_.Paint(painter, surface);
    if (IsCreated() && !drawing_ && !damage_ && !picture_.Fits(surface)) {
        Invalidate(); // now on a screen of another pixel ratio
    }
}

} // namespace owl
