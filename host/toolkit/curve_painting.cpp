// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/curve_painting.h"

#include "host/toolkit/curve_coverage.h"
#include "host/toolkit/qt_painting.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>

#include <vector>

namespace owl {

namespace {

constexpr std::uint32_t kEvenBytes = 0x00FF00FF;

/// \p top over \p below, two bytes at a time. \param coverage 0 to 255
QRgb Mixed(QRgb top, QRgb below, std::uint32_t coverage) {
    const auto mixed = [coverage](std::uint32_t over, std::uint32_t under) {
        const std::uint32_t sum = over * coverage + under * (255 - coverage);
        // A division by 255, rounded, of both halves.
        return ((sum + ((sum >> 8U) & kEvenBytes) + 0x00800080) >> 8U) & kEvenBytes;
    };
    return mixed(top & kEvenBytes, below & kEvenBytes) |
           mixed((top >> 8U) & kEvenBytes, (below >> 8U) & kEvenBytes) << 8U;
}

} // namespace

QImage* PaintedPicture(QPainter& painter) {
    QPaintDevice* device = painter.device();
    if (device == nullptr || device->devType() != QInternal::Image ||
        painter.paintEngine()->type() != QPaintEngine::Raster) {
        return nullptr;
    }
    auto* picture = static_cast<QImage*>(device);
    const bool writable = picture->isDetached() && (picture->format() == QImage::Format_RGB32 ||
                                                    picture->format() == QImage::Format_ARGB32_Premultiplied);
    return writable ? picture : nullptr;
}

void PaintCurve(QImage& picture, const QRect& area, std::span<const TPointF> points, const CurvePen& pen) {
    std::vector<TPointF> placed;
    placed.reserve(points.size());
    for (const TPointF& point : points) {
        placed.push_back({point.x * pen.scale + pen.origin.x(), point.y * pen.scale + pen.origin.y()});
    }
    const qsizetype stride = picture.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    auto* const pixels = reinterpret_cast<QRgb*>(picture.bits());
    CoverCurve(placed, pen.width * pen.scale, FromQRect(area), [&](const CoveredColumn& column) {
        QRgb* pixel = pixels + column.top * stride + column.x;
        for (const std::uint8_t coverage : column.coverage) {
            *pixel = Mixed(pen.color, *pixel, coverage); // quicker than to ask for none and all
            pixel += stride;
        }
    });
}

} // namespace owl
