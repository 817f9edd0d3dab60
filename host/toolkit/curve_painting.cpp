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

/// A colour that is laid over pixels. The four bytes of a pixel are worked on at once, each in 16 bits of its
/// own.
class Ink {
public:
    explicit Ink(QRgb color) : bytes_(Spread(color)) {}

    /// \param coverage 0 to 255
    QRgb Over(QRgb below, std::uint64_t coverage) const {
        const std::uint64_t sum = bytes_ * coverage + Spread(below) * (255 - coverage);
        // A division by 255, rounded.
        const std::uint64_t mixed = ((sum + ((sum >> 8U) & kBytes) + kHalves) >> 8U) & kBytes;
        return static_cast<QRgb>(mixed | mixed >> 24U);
    }

private:
    static constexpr std::uint64_t kBytes = 0x00FF00FF00FF00FF;
    static constexpr std::uint64_t kHalves = 0x0080008000800080;

    static std::uint64_t Spread(std::uint64_t pixel) { return (pixel | pixel << 24U) & kBytes; }

    std::uint64_t bytes_;
};

/// The rows of a picture.
struct Pixels {
    explicit Pixels(QImage& picture)
        : first(reinterpret_cast<QRgb*>(picture.bits())),
          stride(picture.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb))) {}

    QRgb* At(int x, int y) const { return first + y * stride + x; }

    QRgb* first;
    qsizetype stride;
};

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
    const Pixels pixels(picture);
    const Ink ink(pen.color);
    CoverCurve(placed, pen.width * pen.scale, FromQRect(area), [&](const CoveredColumn& column) {
        QRgb* pixel = pixels.At(column.x, column.top);
        for (const std::uint8_t coverage : column.coverage) {
            *pixel = ink.Over(*pixel, coverage); // quicker than to ask for none and all
            pixel += pixels.stride;
        }
    });
}

void PaintDots(QImage& picture, const QRect& area, const QRect& strip, QRgb color) {
    const QRect seen = strip & area;
    if (seen.isEmpty()) {
        return;
    }
    const Pixels pixels(picture);
    const bool level = strip.width() >= strip.height();
    const int dot = level ? strip.height() : strip.width();
    const int pitch = kDotPitch * dot;
    const int hidden = level ? seen.x() - strip.x() : seen.y() - strip.y();
    const int length = level ? seen.width() : seen.height();
    const int lines = level ? seen.height() : seen.width();
    const qsizetype along = level ? 1 : pixels.stride;
    const qsizetype across = level ? pixels.stride : 1;
    QRgb* const first = pixels.At(seen.x(), seen.y());
    for (int part = 0; part < dot; ++part) {
        for (int i = (part + pitch - hidden % pitch) % pitch; i < length; i += pitch) {
            for (int line = 0; line < lines; ++line) {
                first[i * along + line * across] = color;
            }
        }
    }
}

} // namespace owl
