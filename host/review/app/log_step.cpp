// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/log_step.h"

#include <QDebug>

#include <ctime>

namespace orvanta::review {

void LogStep(const std::string& step) {
    constexpr std::clock_t kInMilliseconds = CLOCKS_PER_SEC / 1000;
    qInfo("%s (processor time %ld ms)", step.c_str(), std::clock() / kInMilliseconds);
}

} // namespace orvanta::review
