// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/application.h"

#include "host/platform/interrupts.h"
#include "host/review/cli/exit_status.h"
#include "host/toolkit/appearance.h"
#include "host/toolkit/message_module.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLibraryInfo>
#include <QTemporaryFile>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace orvanta::review {

namespace {

constexpr const char* kPlatform = "QT_QPA_PLATFORM";
constexpr int kInterruptPoll = 200; // ms
constexpr int kScreenWidth = 1366;
constexpr int kScreenHeight = 768;
constexpr int kScreenDpi = 96;

/// Describes a small laptop's screen to the offscreen platform, whose own would be smaller still.
void DescribeScreen(QTemporaryFile& file, double scale) {
    const QJsonObject screen{{"name", "gallery"},
                             {"x", 0},
                             {"y", 0},
                             {"width", qRound(kScreenWidth * scale)},
                             {"height", qRound(kScreenHeight * scale)},
                             {"logicalDpi", kScreenDpi},
                             {"logicalBaseDpi", kScreenDpi},
                             {"dpr", 1}};
    if (!file.open() ||
        file.write(QJsonDocument(QJsonObject{{"screens", QJsonArray{screen}}}).toJson()) < 0 ||
        !file.flush()) {
        throw cli::UsageError("temporary folder: " + file.errorString().toStdString() +
                              " (free some space there, or set TMPDIR)");
    }
}

void RequireDisplay() {
    if (!qEnvironmentVariableIsSet(kPlatform) && qEnvironmentVariableIsEmpty("DISPLAY") &&
        qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
        throw cli::UsageError("no display: neither DISPLAY nor WAYLAND_DISPLAY is set (run this in a desktop "
                              "session; the other commands need none)");
    }
}

/// Qt ends the program when it cannot start; it shall do so with one line that says why and what to do.
void SayWhyQtCannotStart(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    // The cause comes first, as a warning; the last words only list what is installed.
    static std::string cause;
    if (type == QtWarningMsg) {
        cause = text.simplified().toStdString();
    } else if (type == QtFatalMsg) {
        std::fprintf(stderr, "orvanta: windows cannot be shown: %s (check the display of this session)\n",
                     (cause.empty() ? text.simplified().toStdString() : cause).c_str());
        std::fflush(nullptr);
        std::_Exit(cli::kRefused);
    }
}

/// The offscreen platform complains of every dialog that has a smallest size and of every window that pops
/// up.
void SwallowComplaint(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (!text.startsWith("This plugin does not support ")) {
        std::fprintf(stderr, "%s\n", qFormatLogMessage(type, context, text).toUtf8().constData());
    }
}

std::unique_ptr<QApplication> StartQt(Screen screen, double scale) {
    QTemporaryFile description;
    if (screen == Screen::None) {
        DescribeScreen(description, scale);
        qputenv(kPlatform, "offscreen:configfile=" + description.fileName().toUtf8());
        qputenv("QT_SCALE_FACTOR", QByteArray::number(scale));
    } else {
        RequireDisplay();
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
    QApplication::setDesktopFileName("orvanta"); // the icon of its windows
    SetLanguage({});
    QObject::connect(&interruptWatch_, &QTimer::timeout, qt_.get(), [] {
        if (!platform::WasInterrupted()) {
            return;
        }
        QApplication::closeAllWindows();
        // The last window may have closed before there was an event loop that it could end.
        if (std::ranges::none_of(QApplication::topLevelWidgets(), &QWidget::isVisible)) {
            QCoreApplication::quit();
        }
    });
    interruptWatch_.start(kInterruptPoll);
}

void Application::SetStyle(Style style) {
    const owl::Appearance appearance = style == Style::Light  ? owl::Appearance::Light
                                       : style == Style::Dark ? owl::Appearance::Dark
                                                              : owl::Appearance::System;
    owl::ApplyAppearance(*qt_, appearance);
}

void Application::SetLanguage(const std::string& language) {
    if (!language.empty()) {
        QLocale::setDefault(QLocale(QString::fromStdString(language)));
    }
    LoadTexts(QLocale());
}

void Application::SetTextLanguage(const std::string& language) {
    PModule::PreferLanguage(language);
    LoadTexts(language.empty() ? QLocale() : QLocale(QString::fromStdString(language)));
}

void Application::LoadTexts(const QLocale& locale) {
    QApplication::removeTranslator(&texts_);
    if (texts_.load(locale, "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(&texts_);
    }
}

} // namespace orvanta::review
