// SPDX-License-Identifier: GPL-3.0-or-later
// Main program of tests with windows: no display needed, and no warning of Qt goes unseen.
#include <QApplication>
#include <gtest/gtest.h>

namespace {

void FailOnWarning(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    // The offscreen platform says this of size hints, raising and grabbing, at every dialog and menu.
    const bool expected = text.startsWith("This plugin does not support ");
    if (type == QtDebugMsg || type == QtInfoMsg || expected) {
        return;
    }
    ADD_FAILURE() << "Qt: " << text.toStdString();
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
    const QApplication application(argc, argv);
    // What Qt says while it starts is about the machine.
    qInstallMessageHandler(FailOnWarning);
    return RUN_ALL_TESTS();
}
