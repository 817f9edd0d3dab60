// SPDX-License-Identifier: GPL-3.0-or-later
// Curves and dotted lines straight into a picture: a page has more of them than a painter draws in a frame.
#pragma once

#include "host/toolkit/geometry.h"

#include <QPointF>
#include <QRect>
#include <QRgb>

#include <span>

class QImage;
class QPainter;

namespace owl {

/// So many dot lengths from dot to dot, as Qt's own dotted pen has it.
inline constexpr int kDotPitch = 3;

/// The picture that the painter paints on, when its pixels can be written beside the painter; else null.
QImage* PaintedPicture(QPainter& painter);

struct CurvePen {
    double scale; ///< pixels of the picture to a logical one
    QPointF origin;
    double width; ///< logical pixels
    QRgb color;
};

/// \param picture opaque, 32 bits
/// \param area of the picture, nothing outside of it is painted
/// \param points logical pixels
void PaintCurve(QImage& picture, const QRect& area, std::span<const TPointF> points, const CurvePen& pen);

/// Square dots as large as the strip is narrow, each after twice its size.
/// \param picture, area as in PaintCurve
void PaintDots(QImage& picture, const QRect& area, const QRect& strip, QRgb color);

} // namespace owl
