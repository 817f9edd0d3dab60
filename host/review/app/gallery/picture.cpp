// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/gallery/picture.h"

#include "host/platform/atomic_file.h"

#include <QApplication>
#include <QBuffer>
#include <QImageWriter>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include <exception>
#include <stdexcept>

namespace orvanta::review {

namespace {

/// Lets layouts, styles and paint steps that were put off take place.
void Settle() {
    for (int round = 0; round < 5; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

} // namespace

void SavePicture(QWidget& window, const std::string& file) {
    window.show();
    window.activateWindow();
    Settle();
    QByteArray content;
    QBuffer buffer(&content);
    QImageWriter writer(&buffer, "png");
    writer.setCompression(100);
    if (!writer.write(window.grab().toImage().convertToFormat(QImage::Format_RGB32))) {
        throw std::runtime_error(file + ": " + writer.errorString().toStdString() +
                                 " (choose a smaller scale)");
    }
    platform::WriteFileAtomically(file, content.toStdString());
}

void LookAtModal(const std::function<void()>& open, const std::function<void(QWidget&)>& look) {
    std::exception_ptr failure = std::make_exception_ptr(std::logic_error("no modal window came up"));
    QTimer::singleShot(0, qApp, [&] {
        if (QWidget* window = QApplication::activeModalWidget()) {
            try {
                look(*window);
                failure = nullptr;
            } catch (...) {
                // Not through Qt's event loop.
                failure = std::current_exception();
            }
            window->close();
        }
    });
    open();
    if (failure) {
        std::rethrow_exception(failure);
    }
}

} // namespace orvanta::review
