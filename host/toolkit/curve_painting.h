// SPDX-License-Identifier: GPL-3.0-or-later
// Smooth curves straight into a picture: a page of traces has more points than a painter strokes in a frame.
#pragma once

#include "host/toolkit/geometry.h"

#include <QPointF>
#include <QRect>
#include <QRgb>

#include <span>

class QImage;
class QPainter;

namespace owl {

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

} // namespace owl
