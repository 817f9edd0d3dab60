// SPDX-License-Identifier: GPL-3.0-or-later
// What every program starts with that measures windows.
#pragma once

#include "host/toolkit/appearance.h"
#include "host/toolkit/message_module.h"

#include <QApplication>
#include <benchmark/benchmark.h>

namespace orvanta {

/// Runs the benchmarks of the command line without a screen, in the light appearance, with the module's
/// texts.
inline int RunWindowBenchmarks(int argc, char* argv[]) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    // The offscreen platform remarks on every window what it cannot do.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QApplication application(argc, argv);
    owl::ApplyAppearance(application, owl::Appearance::Light);
    const PModule messages("Orvanta", nullptr);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

} // namespace orvanta
