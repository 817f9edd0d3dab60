// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/settling.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <chrono>

namespace orvanta::review {

void LetItSettle(const std::function<bool()>& isSettled) {
    constexpr std::chrono::minutes kLongest{1};
    constexpr int kRounds = 2; // what the last work queued is painted in a round of its own
    constexpr int kRound = 20; // ms
    const QDeadlineTimer end(kLongest);
    for (int settled = 0; settled < kRounds && !end.hasExpired(); settled = isSettled() ? settled + 1 : 0) {
        QEventLoop loop;
        QTimer::singleShot(kRound, &loop, &QEventLoop::quit);
        loop.exec();
    }
}

} // namespace orvanta::review
