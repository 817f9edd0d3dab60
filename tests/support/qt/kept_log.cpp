// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/qt/kept_log.h"

#include <QString>

#include <mutex>

namespace orvanta::test {

namespace {

std::mutex mutex; ///< of the lines; messages come from every thread
std::vector<std::string> lines;
QtMessageHandler earlier = nullptr;

void Keep(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& text) {
    const std::lock_guard lock(mutex);
    lines.push_back(text.toStdString());
}

} // namespace

KeptLog::KeptLog() {
    lines.clear();
    earlier = qInstallMessageHandler(Keep);
}

KeptLog::~KeptLog() {
    qInstallMessageHandler(earlier);
}

const std::vector<std::string>& KeptLog::Lines() const {
    return lines;
}

} // namespace orvanta::test
