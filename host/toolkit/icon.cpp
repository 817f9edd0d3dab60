// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/icon.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace owl {

namespace {

QString FileOf(const QString& name) {
    return ":/icons/" + name + ".svg";
}

bool IsBlack(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            // Premultiplied: black has no colour at any opacity.
            if ((image.pixel(x, y) & 0x00FFFFFFU) != 0) {
                return false;
            }
        }
    }
    return true;
}

QColor ColorFor(QIcon::Mode mode) {
    const QPalette palette = QApplication::palette();
    switch (mode) {
    case QIcon::Disabled:
        return palette.color(QPalette::Disabled, QPalette::ButtonText);
    case QIcon::Selected:
        return palette.color(QPalette::Active, QPalette::HighlightedText);
    case QIcon::Normal:
    case QIcon::Active:
        break;
    }
    return palette.color(QPalette::Active, QPalette::ButtonText);
}

QPixmap Drawn(const QString& file, const QSize& size, const QColor& color, bool faint) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QSvgRenderer picture(file);
    picture.setAspectRatioMode(Qt::KeepAspectRatio);
    QPainter painter(&image);
    picture.render(&painter);
    if (IsBlack(image)) {
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(image.rect(), color);
    } else if (faint) {
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.fillRect(image.rect(), QColor(0, 0, 0, 100));
    }
    painter.end();
    return QPixmap::fromImage(image);
}

class SvgIconEngine final : public QIconEngine {
public:
    SvgIconEngine(QString up, QString down) : up_(std::move(up)), down_(std::move(down)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const double scale = painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, pixmap((QSizeF(rect.size()) * scale).toSize(), mode, state));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        if (size.isEmpty()) {
            return {};
        }
        const QString& file = state == QIcon::On ? down_ : up_;
        const QColor color = ColorFor(mode);
        const QString key = QString("icon %1 %2x%3 %4 %5")
                                .arg(file)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(color.rgba())
                                .arg(mode);
        QPixmap picture;
        if (!QPixmapCache::find(key, &picture)) {
            picture = Drawn(file, size, color, mode == QIcon::Disabled);
            QPixmapCache::insert(key, picture);
        }
        return picture;
    }

    QIconEngine* clone() const override { return new SvgIconEngine(*this); }

private:
    QString up_, down_;
};

QIcon IconOfFiles(const QString& up, const QString& down) {
    return QFile::exists(up) && QFile::exists(down) ? QIcon(new SvgIconEngine(up, down)) : QIcon();
}

} // namespace

QIcon IconOf(unsigned number) {
    return IconOf(number, number);
}

QIcon IconOf(const QString& name) {
    return IconOfFiles(FileOf(name), FileOf(name));
}

QIcon IconOf(unsigned up, unsigned down) {
    return IconOfFiles(FileOf(QString::number(up)), FileOf(QString::number(down)));
}

} // namespace owl
