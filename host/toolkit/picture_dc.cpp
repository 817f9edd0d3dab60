// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/picture_dc.h"

#include "host/toolkit/qt_painting.h"

#include <QFontMetrics>
#include <QPainter>
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
    QPen sharp = pen;
    sharp.setJoinStyle(Qt::MiterJoin);
    painter_.setPen(sharp);
    painter_.drawRect(Inside(rect, sharp));
    painter_.setPen(pen);
}

void PictureDC::FillRect(const TRect& rect, TColor color) {
    painter_.fillRect(ToQRect(rect), ToQColor(color));
}

void PictureDC::FrameRect(const TRect& rect, TColor color) {
    FillRect({rect.left, rect.top, rect.right, rect.top + 1}, color);
    FillRect({rect.left, rect.bottom - 1, rect.right, rect.bottom}, color);
    FillRect({rect.left, rect.top, rect.left + 1, rect.bottom}, color);
    FillRect({rect.right - 1, rect.top, rect.right, rect.bottom}, color);
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
