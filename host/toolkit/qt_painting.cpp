// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/qt_painting.h"

#include <QFontInfo>

#include <algorithm>

namespace owl {

QFont ToQFont(const TFont& font) {
    QFont result(QString::fromStdString(font.face));
    result.setStyleHint(QFont::SansSerif);
    result.setPixelSize(std::max(1, font.height));
    result.setBold(font.bold);
    result.setItalic(font.italic);
    return result;
}

TFont FromQFont(const QFont& font) {
    return {font.family().toStdString(), QFontInfo(font).pixelSize(), font.bold(), font.italic()};
}

} // namespace owl
