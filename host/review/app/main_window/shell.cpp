// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/shell.h"

#include "host/review/app/main_window/side_bar.h"
#include "host/review/app/main_window/text_setting.h"
#include "host/toolkit/icon.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>

#include <utility>

namespace orvanta::review {

namespace {

constexpr const char* kGeometry = "WindowGeometry";
constexpr const char* kState = "WindowState";
constexpr int kStateVersion = 1;

QLabel* AddField(QStatusBar& bar, const char* name) {
    auto* field = new QLabel(&bar);
    field->setObjectName(name);
    field->setTextFormat(Qt::PlainText);
    constexpr int kIndent = 6;
    field->setContentsMargins(kIndent, 0, kIndent, 0);
    field->hide();
    bar.addPermanentWidget(field);
    return field;
}

void Show(QLabel& field, const QString& text) {
    field.setText(text);
    field.setVisible(!text.isEmpty());
}

/// The one local file that is dragged; empty for anything else.
QString FileOf(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

std::string Encoded(const QByteArray& bytes) {
    return bytes.toBase64().toStdString();
}

QByteArray Decoded(const std::string& text) {
    return QByteArray::fromBase64(QByteArray::fromStdString(text));
}

} // namespace

Shell::Shell(Answers answers)
    : answers_(std::move(answers)), sideBar_(new SideBar(this)), text_(new QLabel(this)),
      recording_(AddField(*statusBar(), "recordingField")), montage_(AddField(*statusBar(), "montageField")),
      place_(AddField(*statusBar(), "placeField")) {
    setObjectName(QStringLiteral("Shell"));
    setWindowIcon(owl::IconOf(QStringLiteral("orvanta")));
    setAcceptDrops(true);
    text_->setTextFormat(Qt::PlainText);
    text_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(text_, 1);
    addDockWidget(Qt::RightDockWidgetArea, sideBar_);
    sideBar_->hide();
    ShowTitle({}, false);
}

void Shell::ShowText(const std::string& text) {
    text_->setText(QString::fromStdString(text));
}

std::string Shell::ShownText() const {
    return text_->text().toStdString();
}

void Shell::ShowFields(const QString& recording, const QString& montage, const QString& place) {
    Show(*recording_, recording);
    Show(*montage_, montage);
    Show(*place_, place);
}

QString Shell::ShownPlace() const {
    return place_->text();
}

void Shell::ShowTitle(const QString& file, bool changed) {
    setWindowTitle(file.isEmpty() ? QStringLiteral("Orvanta") : file + "[*] - Orvanta");
    setWindowModified(changed);
}

void Shell::Restore(const GenericPlatform& platform) {
    constexpr QSize kUsual(1280, 800);
    constexpr QSize kSmallest(640, 400);
    constexpr double kOfScreen = 0.9;
    const QSize usual = (screen()->availableSize() * kOfScreen).boundedTo(kUsual);
    resize(usual);
    // Qt refuses what is no state of this window, and moves a window that would lie on no screen.
    if (!restoreGeometry(Decoded(ReadText(platform, kGeometry)))) {
        setWindowState(windowState() | Qt::WindowMaximized);
    } else if (!isMaximized() && (width() < kSmallest.width() || height() < kSmallest.height())) {
        resize(usual);
    }
    restoreState(Decoded(ReadText(platform, kState)), kStateVersion);
    sideBar_->Update();
}

void Shell::Store(GenericPlatform& platform) const {
    WriteText(platform, kGeometry, Encoded(saveGeometry()));
    WriteText(platform, kState, Encoded(saveState(kStateVersion)));
}

bool Shell::event(QEvent* event) {
    if (event->type() == QEvent::WindowUnblocked) {
        // Without a window manager nobody else gives the focus back after a dialog.
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (QApplication::activeWindow() == nullptr && QApplication::activeModalWidget() == nullptr) {
                    activateWindow();
                }
            },
            Qt::QueuedConnection);
    }
    return QMainWindow::event(event);
}

void Shell::closeEvent(QCloseEvent* event) {
    event->setAccepted(answers_.close());
}

void Shell::dragEnterEvent(QDragEnterEvent* event) {
    if (!FileOf(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void Shell::dropEvent(QDropEvent* event) {
    const QString file = FileOf(*event->mimeData());
    if (!file.isEmpty()) {
        event->acceptProposedAction();
        // The program that the file comes from waits for the end of this event.
        QMetaObject::invokeMethod(
            this, [this, path = file.toStdString()] { answers_.drop(path); }, Qt::QueuedConnection);
    }
}

} // namespace orvanta::review
