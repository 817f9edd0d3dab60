// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/picture_dc.h"

#include "host/toolkit/qt_painting.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

#include <utility>

namespace owl {

namespace {

QPolygonF Middles(std::span<const TPoint> points) {
    QPolygonF middles;
    for (const TPoint& point : points) {
        middles << QPointF(point.x + 0.5, point.y + 0.5);
    }
    return middles;
}

QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Where the middle of the pen runs so that it stays inside.
QRectF Inside(const TRect& rect, const QPen& pen) {
    const double half = pen.style() == Qt::NoPen ? 0 : pen.widthF() / 2;
    return QRectF(ToQRect(rect)).adjusted(half, half, -half, -half);
}

QPainterPath Outline(const QRectF& rect) {
    QPainterPath path;
    path.addRect(rect);
    return path;
}

/// A border inside the rectangle, of so many pixels; filled, since a stroke is soft at the corners.
void Frame(QPainter& painter, const TRect& rect, int width, const QColor& color) {
    const QRect all = ToQRect(rect);
    painter.fillRect(QRect(all.left(), all.top(), all.width(), width), color);
    painter.fillRect(QRect(all.left(), all.bottom() + 1 - width, all.width(), width), color);
    painter.fillRect(QRect(all.left(), all.top(), width, all.height()), color);
    painter.fillRect(QRect(all.right() + 1 - width, all.top(), width, all.height()), color);
}

Qt::PenStyle StyleOf(PenStyle style) {
    switch (style) {
    case PenStyle::Dotted:
        return Qt::DotLine;
    case PenStyle::None:
        return Qt::NoPen;
    case PenStyle::Solid:
        break;
    }
    return Qt::SolidLine;
}

} // namespace

PictureDC::PictureDC(QPainter& painter) : painter_(painter) {
    painter_.setRenderHint(QPainter::Antialiasing);
    SelectPen({});
    SelectBrush({Rgb(255, 255, 255)});
    SelectFont({});
}

void PictureDC::SelectPen(const TPen& pen) {
    painter_.setPen(QPen(ToQColor(pen.color), pen.width, StyleOf(pen.style), Qt::SquareCap, Qt::RoundJoin));
}

void PictureDC::SelectBrush(const TBrush& brush) {
    painter_.setBrush(brush.hollow ? QBrush(Qt::NoBrush) : QBrush(ToQColor(brush.color)));
}

void PictureDC::SelectFont(const TFont& font) {
    painter_.setFont(ToQFont(font));
}

void PictureDC::SetTextColor(TColor color) {
    textColor_ = color;
}

TextAlign PictureDC::SetTextAlign(TextAlign align) {
    return std::exchange(align_, align);
}

void PictureDC::Polyline(std::span<const TPoint> points) {
    painter_.drawPolyline(Middles(points));
}

void PictureDC::Polygon(std::span<const TPoint> points) {
    painter_.drawPolygon(Middles(points));
}

void PictureDC::Ellipse(const TRect& rect) {
    painter_.drawEllipse(Inside(rect, painter_.pen()));
}

void PictureDC::Line(const TPoint& from, const TPoint& to) {
    const TPoint ends[] = {from, to};
    Polyline(ends);
}

void PictureDC::Rectangle(const TRect& rect) {
    const QPen pen = painter_.pen();
    painter_.fillRect(ToQRect(rect), painter_.brush());
    if (pen.style() == Qt::SolidLine) {
        Frame(painter_, rect, pen.width(), pen.color());
    } else if (pen.style() == Qt::DotLine) {
        painter_.strokePath(Outline(Inside(rect, pen)), pen);
    }
}

void PictureDC::FillRect(const TRect& rect, TColor color) {
    painter_.fillRect(ToQRect(rect), ToQColor(color));
}

void PictureDC::FrameRect(const TRect& rect, TColor color) {
    Frame(painter_, rect, 1, ToQColor(color));
}

void PictureDC::SetClip(const TRect& rect) {
    painter_.setClipRect(ToQRect(rect), Qt::ReplaceClip);
}

void PictureDC::ClearClip() {
    painter_.setClipping(false);
}

void PictureDC::TextOut(const TPoint& at, std::string_view text) {
    const int width = GetTextExtent(text).cx;
    const int before = align_ == TextAlign::Left ? 0 : align_ == TextAlign::Center ? width / 2 : width;
    const QPen pen = painter_.pen();
    painter_.setPen(ToQColor(textColor_));
    painter_.drawText(QPoint(at.x - before, at.y + painter_.fontMetrics().ascent()), ToQString(text));
    painter_.setPen(pen);
}

TSize PictureDC::GetTextExtent(std::string_view text) const {
    const QFontMetrics metrics = painter_.fontMetrics();
    return {metrics.horizontalAdvance(ToQString(text)), metrics.height()};
}

void PictureDC::BlendRect(const TRect& rect, TColor color, std::uint8_t alpha) {
    QColor blend = ToQColor(color);
    blend.setAlpha(alpha);
    painter_.fillRect(ToQRect(rect), blend);
}

void PictureDC::DrawImage(const TRect& rect, const TImage& image) {
    const auto pixels = static_cast<std::int64_t>(image.width) * image.height;
    if (pixels <= 0 || static_cast<std::int64_t>(image.pixels.size()) < pixels) {
        return;
    }
    const QImage picture(reinterpret_cast<const uchar*>(image.pixels.data()), image.width, image.height,
                         image.width * 4, QImage::Format_ARGB32);
    painter_.drawImage(ToQRect(rect), picture);
}

} // namespace owl
