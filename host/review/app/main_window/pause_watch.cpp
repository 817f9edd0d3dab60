// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/pause_watch.h"

#include "host/review/app/main_window/work_gui.h"
#include "host/toolkit/event_guard.h"

#include <QApplication>
#include <QEvent>

#include <utility>

namespace orvanta::review {

PauseWatch::PauseWatch(const WorkGui& gui, std::chrono::milliseconds pause, std::function<void()> paused)
    : gui_(gui), paused_(std::move(paused)) {
    timer_.setSingleShot(true);
    timer_.setInterval(pause);
    connect(&timer_, &QTimer::timeout, this, [this] { owl::RunGuarded([this] { Paused(); }); });
    QCoreApplication::instance()->installEventFilter(this);
}

bool PauseWatch::eventFilter(QObject* /*object*/, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::Wheel:
    case QEvent::Drop:
        timer_.start();
        break;
    default:
        break;
    }
    return false;
}

void PauseWatch::Paused() {
    if (gui_.IsBusy() || QApplication::activeModalWidget() != nullptr) {
        timer_.start();
    } else {
        paused_();
    }
}

} // namespace orvanta::review
