// SPDX-License-Identifier: GPL-3.0-or-later
// Qt's events as the window's.
#include "host/toolkit/event_guard.h"
#include "host/toolkit/key_translation.h"
#include "host/toolkit/window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>

#include <utility>

namespace owl {

namespace {

unsigned ModKeys(Qt::KeyboardModifiers modifiers, Qt::MouseButtons buttons) {
    unsigned keys = 0;
    keys |= modifiers.testFlag(Qt::ShiftModifier) ? kMkShift : 0;
    keys |= modifiers.testFlag(Qt::ControlModifier) ? kMkControl : 0;
    keys |= buttons.testFlag(Qt::LeftButton) ? kMkLButton : 0;
    keys |= buttons.testFlag(Qt::RightButton) ? kMkRButton : 0;
    keys |= buttons.testFlag(Qt::MiddleButton) ? kMkMButton : 0;
    return keys;
}

TPoint ToPoint(const QPointF& point) {
    const QPoint whole = point.toPoint();
    return {whole.x(), whole.y()};
}

unsigned SizeType(const QWidget& window) {
    return window.isMinimized() ? kSizeMinimized : window.isMaximized() ? kSizeMaximized : kSizeRestored;
}

} // namespace

constinit const TResponseTable TWindow::__entries = {
    On<WindowEvent::Size, &TWindow::EvSize>(),
    On<WindowEvent::SetFocus, &TWindow::EvSetFocus>(),
    On<WindowEvent::KillFocus, &TWindow::EvKillFocus>(),
    On<WindowEvent::KeyDown, &TWindow::EvKeyDown>(),
    On<WindowEvent::LButtonDown, &TWindow::EvLButtonDown>(),
    On<WindowEvent::LButtonUp, &TWindow::EvLButtonUp>(),
    On<WindowEvent::LButtonDblClk, &TWindow::EvLButtonDblClk>(),
    On<WindowEvent::MouseMove, &TWindow::EvMouseMove>(),
    On<WindowEvent::MouseWheel, &TWindow::EvMouseWheel>(),
};

const TResponseEntry* TWindow::Find(const TEventKey& key) const {
    return FindFirst<TEventHandler>(__entries, *this, key);
}

void TWindow::EvSize(unsigned sizeType, const TSize& /*size*/) {
    if (sizeType != kSizeMinimized) {
        Invalidate();
    }
}

void TWindow::EvSetFocus(HWND /*lost*/) {}

void TWindow::EvKillFocus(HWND /*got*/) {}

void TWindow::EvKeyDown(unsigned /*key*/, unsigned /*repeat*/, unsigned /*flags*/) {
    if (passOn_ != nullptr) {
        *passOn_ = true;
    }
}

// Clicks and moves belong to the window they hit; keys and the wheel go on to the one around it.
void TWindow::EvLButtonDown(unsigned /*modKeys*/, const TPoint& /*point*/) {}

void TWindow::EvLButtonUp(unsigned /*modKeys*/, const TPoint& /*point*/) {}

void TWindow::EvLButtonDblClk(unsigned /*modKeys*/, const TPoint& /*point*/) {}

void TWindow::EvMouseMove(unsigned /*modKeys*/, const TPoint& /*point*/) {}

void TWindow::EvMouseWheel(unsigned /*modKeys*/, int /*delta*/, const TPoint& /*point*/) {
    if (passOn_ != nullptr) {
        *passOn_ = true;
    }
}

template <typename Args>
void TWindow::Answer(WindowEvent kind, const Args& args, QEvent& event) {
    bool passOn = false;
    if (IsCreated()) {
        const QPointer<TWindow> alive(this);
        bool* const outer = std::exchange(passOn_, &passOn);
        RunGuarded([&] { Dispatch({{EventKind::Window, static_cast<unsigned>(kind)}, args}); });
        if (alive) {
            passOn_ = outer;
        }
    }
    event.setAccepted(!passOn);
}

void TWindow::AnswerMouse(WindowEvent kind, QMouseEvent& event, Qt::MouseButton button) {
    if (event.button() == button) {
        Answer(kind, MouseArgs{ModKeys(event.modifiers(), event.buttons()), ToPoint(event.position())},
               event);
    } else {
        event.ignore();
    }
}

void TWindow::resizeEvent(QResizeEvent* event) {
    Answer(WindowEvent::Size, SizeArgs{SizeType(*this), {event->size().width(), event->size().height()}},
           *event);
}

void TWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    switch (event->type()) {
    case QEvent::WindowStateChange:
        if (isMinimized()) {
            Answer(WindowEvent::Size, SizeArgs{kSizeMinimized, {width(), height()}}, *event);
        }
        break;
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
    case QEvent::FontChange:
        Invalidate();
        break;
    default:
        break;
    }
}

void TWindow::closeEvent(QCloseEvent* event) {
    if (IsCreated()) {
        Destroy();
    }
    event->accept();
}

void TWindow::keyPressEvent(QKeyEvent* event) {
    const unsigned key = VirtualKey({event->nativeScanCode(), event->key(), event->modifiers()});
    if (key == 0) {
        event->ignore();
        return;
    }
    constexpr unsigned kScanCode = 0xFF;
    const unsigned flags = (event->nativeScanCode() & kScanCode) | (event->isAutoRepeat() ? kKeyRepeats : 0);
    Answer(WindowEvent::KeyDown, KeyArgs{key, static_cast<unsigned>(event->count()), flags}, *event);
}

void TWindow::mousePressEvent(QMouseEvent* event) {
    AnswerMouse(WindowEvent::LButtonDown, *event, Qt::LeftButton);
}

void TWindow::mouseReleaseEvent(QMouseEvent* event) {
    AnswerMouse(WindowEvent::LButtonUp, *event, Qt::LeftButton);
}

void TWindow::mouseDoubleClickEvent(QMouseEvent* event) {
    AnswerMouse(WindowEvent::LButtonDblClk, *event, Qt::LeftButton);
}

void TWindow::mouseMoveEvent(QMouseEvent* event) {
    AnswerMouse(WindowEvent::MouseMove, *event, Qt::NoButton);
}

void TWindow::wheelEvent(QWheelEvent* event) {
    Answer(WindowEvent::MouseWheel,
           WheelArgs{ModKeys(event->modifiers(), event->buttons()), event->angleDelta().y(),
                     ToPoint(event->position())},
           *event);
}

} // namespace owl
