// SPDX-License-Identifier: GPL-3.0-or-later
// What every program starts with that measures windows and painting.
#pragma once

#include "host/toolkit/appearance.h"
#include "host/toolkit/message_module.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPolygonF>
#include <benchmark/benchmark.h>

#include <cmath>

namespace orvanta {

/// Measures rounds of the work, and before them does one that does not count: weights, fonts and pictures
/// that are made once and kept are ready then.
template <typename Work>
void MeasureRounds(benchmark::State& state, Work work) {
    work();
    for ([[maybe_unused]] const auto round : state) {
        work();
    }
}

/// What the other figures of a program are compared with: 64 lines of 1,500 points that Qt draws without
/// our code, on 1600 × 900 pixels.
inline void QtAlone(benchmark::State& state) {
    constexpr int kLines = 64;
    constexpr int kPoints = 1500;
    QImage image(1600, 900, QImage::Format_RGB32);
    MeasureRounds(state, [&image] {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        for (int line = 0; line < kLines; ++line) {
            QPolygonF points;
            for (int x = 0; x < kPoints; ++x) {
                points << QPointF(x, 14 * line + 6 * std::sin(0.1 * x + line));
            }
            painter.drawPolyline(points);
        }
    });
}

/// Runs the benchmarks of the command line and QtAlone without a screen, in the light appearance, with the
/// module's texts.
inline int RunWindowBenchmarks(int argc, char* argv[]) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    // The offscreen platform remarks on every window what it cannot do.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QApplication application(argc, argv);
    owl::ApplyAppearance(application, owl::Appearance::Light);
    const PModule messages("Orvanta", nullptr);
    benchmark::RegisterBenchmark("QtAlone", QtAlone)->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

} // namespace orvanta
