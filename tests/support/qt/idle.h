// SPDX-License-Identifier: GPL-3.0-or-later
// What runs when there is nothing left to do.
#pragma once

#include <QEventLoop>
#include <QTimer>

namespace orvanta::test {

/// Lets the event loop run out of work and wait.
inline void WaitUntilIdle() {
    QEventLoop loop;
    QTimer::singleShot(1, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace orvanta::test
