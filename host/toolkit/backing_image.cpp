// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/backing_image.h"

#include "host/toolkit/qt_painting.h"

#include <QPainter>

#include <cmath>

namespace owl {

namespace {

QSize DeviceSize(const BackingImage::Surface& surface) {
    // Upwards: at 1.5 device pixels an odd width ends within one.
    return {static_cast<int>(std::ceil(surface.size.cx * surface.pixelRatio)),
            static_cast<int>(std::ceil(surface.size.cy * surface.pixelRatio))};
}

QRect Whole(const TSize& size) {
    return {0, 0, size.cx, size.cy};
}

} // namespace

bool BackingImage::Fits(const Surface& surface) const {
    return finished_.size() == DeviceSize(surface) && finished_.devicePixelRatio() == surface.pixelRatio;
}

QImage BackingImage::Begin(const Surface& surface, Damage& damage) const {
    if (!Fits(surface)) {
        damage = {FromQRect(Whole(surface.size)), true};
    }
    const bool nothingStays = damage.erase && ToQRect(damage.rect).contains(Whole(surface.size));
    QImage picture = nothingStays ? QImage(DeviceSize(surface), QImage::Format_RGB32) : finished_.copy();
    picture.setDevicePixelRatio(surface.pixelRatio);
    if (damage.erase) {
        QPainter(&picture).fillRect(ToQRect(damage.rect), surface.background);
    }
    return picture;
}

void BackingImage::Finish(const QImage& picture, const TRect& damaged) {
    const double ratio = picture.devicePixelRatio();
    const bool fits = finished_.size() == picture.size() && finished_.devicePixelRatio() == ratio;
    const TSize size{static_cast<int>(picture.width() / ratio), static_cast<int>(picture.height() / ratio)};
    if (!fits || ToQRect(damaged).contains(Whole(size))) {
        finished_ = picture;
        return;
    }
    QPainter painter(&finished_);
    painter.setClipRect(ToQRect(damaged));
    painter.drawImage(QPoint(0, 0), picture);
}

void BackingImage::Paint(QPainter& painter, const Surface& surface) const {
    if (!Fits(surface)) {
        painter.fillRect(Whole(surface.size), surface.background);
    }
    if (!finished_.isNull()) {
        painter.drawImage(QPoint(0, 0), finished_);
    }
}

} // namespace owl
