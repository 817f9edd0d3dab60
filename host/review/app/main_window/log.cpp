// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/log.h"

#include "host/review/cli/exit_status.h"

#include <QDateTime>
#include <QFile>

#include <cstdio>
#include <mutex>

namespace orvanta::review {

namespace {

constexpr qsizetype kKept = 1000;

/// Messages come from every thread.
struct State {
    std::mutex mutex;
    QStringList lines;
    QFile file;
    QtMessageHandler earlier = nullptr;
};

State& TheState() {
    static State state;
    return state;
}

const char* KindOf(QtMsgType type) {
    switch (type) {
    case QtDebugMsg:
        return "debug";
    case QtInfoMsg:
        return "info";
    case QtWarningMsg:
        return "warning";
    case QtCriticalMsg:
    case QtFatalMsg:
        break;
    }
    return "error";
}

void Keep(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    State& state = TheState();
    QtMessageHandler earlier = nullptr;
    {
        const std::lock_guard lock(state.mutex);
        earlier = state.earlier;
        const QString line = QDateTime::currentDateTime().toString(Qt::ISODateWithMs) + ' ' + KindOf(type) +
                             ' ' + text.simplified();
        state.lines << line;
        if (state.lines.size() > kKept) {
            state.lines.removeFirst();
        }
        if (state.file.isOpen()) {
            state.file.write(line.toUtf8() + '\n');
            state.file.flush(); // the last line counts most when the program ends badly
        }
    }
    if (type == QtDebugMsg || type == QtInfoMsg) {
        return;
    }
    if (earlier != nullptr) {
        earlier(type, context, text);
    } else {
        std::fprintf(stderr, "%s\n", qFormatLogMessage(type, context, text).toUtf8().constData());
    }
}

} // namespace

Log::Log(const std::string& file) {
    State& state = TheState();
    const std::lock_guard lock(state.mutex);
    state.lines.clear();
    if (!file.empty()) {
        state.file.setFileName(QString::fromStdString(file));
        if (!state.file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text)) {
            throw cli::UsageError(file +
                                  ": the log cannot be written: " + state.file.errorString().toStdString() +
                                  " (choose another file with --log)");
        }
    }
    state.earlier = qInstallMessageHandler(Keep);
}

Log::~Log() {
    State& state = TheState();
    const std::lock_guard lock(state.mutex);
    qInstallMessageHandler(state.earlier);
    state.file.close();
    state.lines.clear();
}

QStringList Log::Lines() {
    State& state = TheState();
    const std::lock_guard lock(state.mutex);
    return state.lines;
}

} // namespace orvanta::review
