// SPDX-License-Identifier: GPL-3.0-or-later
// Geometry, colours and fonts in Qt's terms.
#pragma once

#include "host/toolkit/dc.h"

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

namespace owl {

inline QColor ToQColor(TColor color) {
    return {Red(color), Green(color), Blue(color)};
}

inline TColor FromQColor(const QColor& color) {
    return Rgb(static_cast<std::uint8_t>(color.red()), static_cast<std::uint8_t>(color.green()),
               static_cast<std::uint8_t>(color.blue()));
}

inline QRect ToQRect(const TRect& rect) {
    return {rect.left, rect.top, rect.Width(), rect.Height()};
}

inline TRect FromQRect(const QRect& rect) {
    return {rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()};
}

/// \param text UTF-8
inline QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

ORVANTA_TOOLKIT_API QFont ToQFont(const TFont& font);
ORVANTA_TOOLKIT_API TFont FromQFont(const QFont& font);

} // namespace owl
