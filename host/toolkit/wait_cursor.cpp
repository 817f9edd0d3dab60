// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/wait_cursor.h"

#include <QCursor>
#include <QGuiApplication>

#include <utility>
#include <vector>

namespace owl {

namespace {

class OverrideCursorDisplay final : public CursorDisplay {
public:
    void Show(unsigned cursor) override {
        if (QGuiApplication::instance() != nullptr) {
            QGuiApplication::setOverrideCursor(cursor == kIdcWait ? Qt::WaitCursor : Qt::ArrowCursor);
        }
    }
    void Restore() override {
        if (QGuiApplication::instance() != nullptr) {
            QGuiApplication::restoreOverrideCursor();
        }
    }
};

struct Cursors {
    OverrideCursorDisplay standard;
    CursorDisplay* replacement = nullptr;
    std::vector<unsigned> shown;

    CursorDisplay& Display() { return replacement != nullptr ? *replacement : standard; }
};

Cursors& State() {
    static Cursors cursors;
    return cursors;
}

} // namespace

CursorDisplay::~CursorDisplay() = default;

CursorDisplay* ReplaceCursorDisplay(CursorDisplay* display) {
    return std::exchange(State().replacement, display);
}

unsigned CurrentCursor() {
    return State().shown.empty() ? 0 : State().shown.back();
}

WaitCursor::WaitCursor() {
    State().shown.push_back(kIdcWait);
    State().Display().Show(kIdcWait);
}

WaitCursor::~WaitCursor() {
    State().Display().Restore();
    State().shown.pop_back();
}

} // namespace owl
