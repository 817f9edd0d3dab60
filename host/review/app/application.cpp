// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/application.h"

#include "host/platform/interrupts.h"
#include "host/review/cli/exit_status.h"

#include <QLibraryInfo>
#include <QLocale>

#include <cstdio>
#include <cstdlib>

namespace orvanta::review {

namespace {

constexpr const char* kPlatform = "QT_QPA_PLATFORM";
constexpr int kInterruptPoll = 200; // ms

void ChoosePlatform(Screen screen) {
    if (qEnvironmentVariableIsSet(kPlatform)) {
        return;
    }
    if (screen == Screen::None) {
        qputenv(kPlatform, "offscreen");
    } else if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
        throw cli::UsageError("no display: neither DISPLAY nor WAYLAND_DISPLAY is set (run this in a desktop "
                              "session; orvanta macro new and macro show need none)");
    }
}

/// Qt ends the program when it cannot start; it shall do so with a line that says what to do.
void SayWhyQtCannotStart(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "orvanta: windows cannot be shown: %s (check the display of this session)\n",
                     text.simplified().toUtf8().constData());
        std::fflush(nullptr);
        std::_Exit(cli::kRefused);
    }
}

/// The offscreen platform complains of every dialog that has a smallest size.
void SwallowComplaint(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (text != "This plugin does not support propagateSizeHints()") {
        std::fprintf(stderr, "%s\n", qFormatLogMessage(type, context, text).toUtf8().constData());
    }
}

std::unique_ptr<QApplication> StartQt(Screen screen, double scale) {
    ChoosePlatform(screen);
    if (scale != 1) {
        qputenv("QT_SCALE_FACTOR", QByteArray::number(scale));
    } else if (screen == Screen::None) {
        qunsetenv("QT_SCALE_FACTOR");
    }
    // Qt keeps references to both.
    static int argumentCount = 1;
    static char name[] = "orvanta";
    static char* arguments[] = {name, nullptr};
    const QtMessageHandler earlier = qInstallMessageHandler(SayWhyQtCannotStart);
    auto qt = std::make_unique<QApplication>(argumentCount, arguments);
    qInstallMessageHandler(screen == Screen::None ? SwallowComplaint : earlier);
    return qt;
}

} // namespace

Application::Application(Screen screen, double scale) : qt_(StartQt(screen, scale)) {
    QApplication::setApplicationName("orvanta");
    QApplication::setApplicationDisplayName("Orvanta");
    SetLanguage({});
    QObject::connect(&interruptWatch_, &QTimer::timeout, qt_.get(), [] {
        if (platform::WasInterrupted()) {
            QApplication::closeAllWindows();
        }
    });
    interruptWatch_.start(kInterruptPoll);
}

void Application::SetStyle(Style /*style*/) {}

void Application::SetLanguage(const std::string& language) {
    if (!language.empty()) {
        QLocale::setDefault(QLocale(QString::fromStdString(language)));
    }
    QApplication::removeTranslator(&texts_);
    if (texts_.load(QLocale(), "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(&texts_);
    }
}

} // namespace orvanta::review
