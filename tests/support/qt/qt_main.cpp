// SPDX-License-Identifier: GPL-3.0-or-later
// Main program of tests with windows: no display needed, and no warning of Qt goes unseen.
#include <QApplication>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <iterator>
#include <thread>

namespace {

void FailOnWarning(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    // The offscreen platform says this of size hints, raising and grabbing, at every dialog and menu.
    const bool expected = text.startsWith("This plugin does not support ");
    if (type == QtDebugMsg || type == QtInfoMsg || expected) {
        return;
    }
    ADD_FAILURE() << "Qt: " << text.toStdString();
}

bool IsOneOfSeveralThreads() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {}) > 1;
}

/// Who waits for a thread of Qt is told before it is gone; one that goes while leaks are looked for makes the
/// search crash ("Tracer caught signal 11").
void AwaitOtherThreads() {
    constexpr std::chrono::milliseconds kRound{1};
    for (int rounds = 0; rounds < 1000 && IsOneOfSeveralThreads(); ++rounds) {
        std::this_thread::sleep_for(kRound);
    }
}

int RunWithApplication(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    // What Qt says while it starts is about the machine.
    qInstallMessageHandler(FailOnWarning);
    return RUN_ALL_TESTS();
}

} // namespace

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) {
        return RUN_ALL_TESTS();
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const int result = RunWithApplication(argc, argv);
    AwaitOtherThreads();
    return result;
}
