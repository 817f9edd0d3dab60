// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/focus_tracker.h"

#include "host/toolkit/event_guard.h"
#include "host/toolkit/window.h"

#include <QApplication>
#include <QPointer>

#include <algorithm>

namespace owl {

namespace {

/// The windows around a widget, itself first; a dialog lies within the window it belongs to.
std::vector<TWindow*> WindowsAround(QWidget* widget) {
    std::vector<TWindow*> windows;
    for (; widget != nullptr; widget = widget->parentWidget()) {
        auto* window = dynamic_cast<TWindow*>(widget);
        if (window != nullptr && window->IsCreated()) {
            windows.push_back(window);
        }
    }
    return windows;
}

bool Has(const std::vector<TWindow*>& windows, const TWindow* window) {
    return std::ranges::find(windows, window) != windows.end();
}

HWND Front(const std::vector<TWindow*>& windows) {
    return windows.empty() ? HWND() : windows.front()->GetHandle();
}

/// Those of \p windows that \p others do not have.
std::vector<QPointer<TWindow>> Without(const std::vector<TWindow*>& windows,
                                       const std::vector<TWindow*>& others) {
    std::vector<QPointer<TWindow>> result;
    for (TWindow* window : windows) {
        if (!Has(others, window)) {
            result.emplace_back(window);
        }
    }
    return result;
}

void Tell(const QPointer<TWindow>& window, WindowEvent event, HWND other) {
    // A handler told before may have ended this window.
    if (window && window->IsCreated()) {
        RunGuarded([&] {
            window->Dispatch({{EventKind::Window, static_cast<unsigned>(event)}, FocusArgs{other}});
        });
    }
}

} // namespace

FocusTracker* FocusTracker::Instance() {
    static QPointer<FocusTracker> tracker;
    if (!tracker && qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr) {
        tracker = new FocusTracker(QCoreApplication::instance());
    }
    return tracker;
}

FocusTracker::FocusTracker(QObject* application) : QObject(application) {
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget* /*old*/, QWidget* now) { FocusChanged(now); });
}

void FocusTracker::Forget(const TWindow& window) {
    std::erase(chain_, &window);
}

void FocusTracker::FocusChanged(QWidget* now) {
    std::vector<TWindow*> windows = WindowsAround(now);
    // A control directly in the frame is no window of its own; the frame itself is.
    const bool within = !windows.empty() && windows.front() != now && Has(chain_, windows.front());
    if (windows.empty() || within) {
        return;
    }
    const HWND lost = Front(chain_);
    const HWND got = Front(windows);
    const std::vector<QPointer<TWindow>> left = Without(chain_, windows);
    std::vector<QPointer<TWindow>> entered = Without(windows, chain_);
    std::ranges::reverse(entered); // the outer window first
    chain_ = std::move(windows);   // before a handler moves the focus on
    for (const QPointer<TWindow>& window : left) {
        Tell(window, WindowEvent::KillFocus, got);
    }
    for (const QPointer<TWindow>& window : entered) {
        if (window && Has(chain_, window)) {
            Tell(window, WindowEvent::SetFocus, lost);
        }
    }
}

} // namespace owl
