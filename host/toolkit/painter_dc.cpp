// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/painter_dc.h"

#include "host/toolkit/curve_painting.h"
#include "host/toolkit/qt_painting.h"
#include "host/toolkit/set_font.h"

#include <QPaintEngine>
#include <QPainter>
#include <QPen>
#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace owl {

namespace {

/// Up to this size, in logical pixels, an ellipse is a mark.
constexpr int kLargestMark = 24;
constexpr std::size_t kMarksKept = 64;
/// Up to this width, in device pixels, the lines of a curve are drawn one by one.
constexpr double kWidestSeparateLine = 6;
/// From so many corners on a polygon is filled in two steps.
constexpr int kManyCorners = 16;

using Points = QVarLengthArray<QPointF, 512>;

QPointF Middle(const TPoint& point) {
    return {point.x + 0.5, point.y + 0.5};
}

Points Middles(std::span<const TPoint> points) {
    Points middles;
    middles.reserve(static_cast<qsizetype>(points.size()));
    for (const TPoint& point : points) {
        middles.append(Middle(point));
    }
    return middles;
}

/// Without the points on the way straight on: the lines are the same and fewer.
std::vector<TPoint> Corners(std::span<const TPoint> points) {
    std::vector<TPoint> corners;
    corners.reserve(points.size());
    for (const TPoint& point : points) {
        if (corners.size() > 1) {
            const TPoint& before = corners[corners.size() - 2];
            const std::int64_t dx = corners.back().x - before.x;
            const std::int64_t dy = corners.back().y - before.y;
            const std::int64_t moreX = point.x - corners.back().x;
            const std::int64_t moreY = point.y - corners.back().y;
            if (dx * moreY == dy * moreX && dx * moreX + dy * moreY > 0) {
                corners.back() = point;
                continue;
            }
        }
        corners.push_back(point);
    }
    return corners;
}

bool IsStraight(const TPoint& from, const TPoint& to) {
    return from.x == to.x || from.y == to.y;
}

bool AreStraight(std::span<const TPoint> points) {
    return std::adjacent_find(points.begin(), points.end(), [](const TPoint& from, const TPoint& to) {
               return !IsStraight(from, to);
           }) == points.end();
}

QPen ToQPen(const TPen& pen, Qt::PenCapStyle cap) {
    if (pen.style == PenStyle::None) {
        return QPen(Qt::NoPen);
    }
    const bool dotted = pen.style == PenStyle::Dotted;
    return {ToQColor(pen.color), static_cast<double>(pen.width), dotted ? Qt::DotLine : Qt::SolidLine,
            dotted ? Qt::FlatCap : cap, Qt::RoundJoin};
}

QBrush ToQBrush(const TBrush& brush) {
    return brush.hollow ? QBrush(Qt::NoBrush) : QBrush(ToQColor(brush.color));
}

void PaintEllipse(QPainter& painter, const QRectF& rect, const TPen& pen) {
    const double half = pen.style == PenStyle::None ? 0 : pen.width / 2.0;
    painter.drawEllipse(rect.adjusted(half, half, -half, -half));
}

bool IsOpaque(const TImage& image) {
    std::uint32_t common = 0xFF000000;
    for (const std::uint32_t pixel : image.pixels) {
        common &= pixel;
    }
    return common == 0xFF000000;
}

} // namespace

PainterDC::PainterDC(QPainter& painter) : painter_(painter), font_(FontFor({})) {
    painter_.save();
    painter_.setClipping(false);
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter_.setFont(font_->Font());
    brush_.color = Rgb(255, 255, 255);
    const QTransform transform = painter_.deviceTransform();
    onGrid_ = painter_.paintEngine()->type() == QPaintEngine::Raster &&
              transform.type() <= QTransform::TxScale && transform.m11() > 0 &&
              qFuzzyCompare(transform.m11(), transform.m22());
    if (onGrid_) {
        scale_ = transform.m11();
        origin_ = {transform.dx(), transform.dy()};
    }
}

PainterDC::~PainterDC() {
    painter_.restore();
}

void PainterDC::SelectPen(const TPen& pen) {
    if (pen == pen_) {
        return;
    }
    pen_ = pen;
    pen_.width = std::max(1, pen.width);
    if (tools_ == Tools::Round || tools_ == Tools::Flat) {
        tools_ = Tools::None;
    }
}

void PainterDC::SelectBrush(const TBrush& brush) {
    if (brush == brush_) {
        return;
    }
    brush_ = brush;
    if (tools_ == Tools::Area) {
        tools_ = Tools::None;
    }
}

void PainterDC::SelectFont(const TFont& font) {
    if (font == font_->Description()) {
        return;
    }
    font_ = FontFor(font);
    if (!onGrid_) {
        painter_.setFont(font_->Font());
    } else if (tools_ == Tools::Text) {
        tools_ = Tools::None; // texts are measured in more fonts than they are drawn in
    }
}

void PainterDC::SetTextColor(TColor color) {
    if (color == textColor_) {
        return;
    }
    textColor_ = color;
    if (tools_ == Tools::Text) {
        tools_ = Tools::None;
    }
}

TextAlign PainterDC::SetTextAlign(TextAlign align) {
    return std::exchange(align_, align);
}

void PainterDC::Take(Tools tools) {
    if (tools == tools_) {
        return;
    }
    tools_ = tools;
    switch (tools) {
    case Tools::Round:
    case Tools::Flat:
        painter_.setPen(ToQPen(pen_, tools == Tools::Round ? Qt::RoundCap : Qt::FlatCap));
        painter_.setBrush(Qt::NoBrush);
        break;
    case Tools::Area:
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(ToQBrush(brush_));
        break;
    case Tools::Text:
        painter_.setFont(font_->Font());
        painter_.setPen(ToQColor(textColor_));
        break;
    case Tools::None:
        break;
    }
}

void PainterDC::SetSmooth(bool smooth) {
    // Off the grid every edge is smooth.
    const bool wanted = smooth || !onGrid_;
    if (wanted != smooth_) {
        smooth_ = wanted;
        painter_.setRenderHint(QPainter::Antialiasing, wanted);
    }
}

int PainterDC::GridX(int x) const {
    return qRound(x * scale_ + origin_.x());
}

int PainterDC::GridY(int y) const {
    return qRound(y * scale_ + origin_.y());
}

QRect PainterDC::ToGrid(const TRect& rect) const {
    return {QPoint(GridX(rect.left), GridY(rect.top)), QPoint(GridX(rect.right) - 1, GridY(rect.bottom) - 1)};
}

int PainterDC::GridWidth(int penWidth) const {
    // Downwards: all lines of a width look the same and none leaves its row.
    return std::max(1, static_cast<int>(penWidth * scale_));
}

QImage* PainterDC::Picture() const {
    return onGrid_ ? PaintedPicture(painter_) : nullptr;
}

QRect PainterDC::SeenOf(const QImage& picture) const {
    return clip_ ? *clip_ & picture.rect() : picture.rect();
}

void PainterDC::FillGrid(const QRect& area, const QColor& color) {
    SetSmooth(false);
    painter_.fillRect(QRectF((area.x() - origin_.x()) / scale_, (area.y() - origin_.y()) / scale_,
                             area.width() / scale_, area.height() / scale_),
                      color);
}

void PainterDC::FillStrip(const QRect& strip, const TPen& pen) {
    const QColor color = ToQColor(pen.color);
    if (pen.style == PenStyle::Solid) {
        FillGrid(strip, color);
        return;
    }
    if (QImage* picture = Picture()) {
        PaintDots(*picture, SeenOf(*picture), strip, color.rgb());
        return;
    }
    const bool level = strip.width() >= strip.height();
    const int dot = std::max(1, level ? strip.height() : strip.width());
    for (int done = 0; done < std::max(strip.width(), strip.height()); done += kDotPitch * dot) {
        const QPoint at = strip.topLeft() + (level ? QPoint(done, 0) : QPoint(0, done));
        FillGrid(QRect(at, QSize(dot, dot)) & strip, color);
    }
}

void PainterDC::Border(const TRect& rect, const TPen& pen) {
    const QRect all = ToGrid(rect);
    const int width = GridWidth(pen.width);
    if (pen.style == PenStyle::None || all.isEmpty()) {
        return;
    }
    if (2 * width >= std::min(all.width(), all.height())) {
        FillStrip(all, pen);
        return;
    }
    FillStrip({all.x(), all.y(), all.width(), width}, pen);
    FillStrip({all.x(), all.bottom() + 1 - width, all.width(), width}, pen);
    const int sides = all.height() - 2 * width;
    FillStrip({all.x(), all.y() + width, width, sides}, pen);
    FillStrip({all.right() + 1 - width, all.y() + width, width, sides}, pen);
}

void PainterDC::StraightLine(const TPoint& from, const TPoint& to) {
    const int before = pen_.width / 2;
    const int width = GridWidth(pen_.width);
    if (from.y == to.y) {
        const int left = GridX(std::min(from.x, to.x));
        const int right = GridX(std::max(from.x, to.x) + 1);
        FillStrip({left, GridY(from.y - before), right - left, width}, pen_);
    } else {
        const int top = GridY(std::min(from.y, to.y));
        const int bottom = GridY(std::max(from.y, to.y) + 1);
        FillStrip({GridX(from.x - before), top, width, bottom - top}, pen_);
    }
}

void PainterDC::SlantedLines(std::span<const TPoint> points) {
    SetSmooth(true);
    const double width = pen_.width * scale_;
    const bool separate =
        onGrid_ && pen_.style == PenStyle::Solid && width > 1 && width <= kWidestSeparateLine;
    if (!separate) {
        Take(Tools::Round);
        const Points middles = Middles(points);
        painter_.drawPolyline(middles.data(), static_cast<int>(middles.size()));
        return;
    }
    // Qt strokes a joined curve of this width ten times slower than its lines. Each line goes on a little
    // past its ends, which closes the gaps at the corners and rounds them as far as one sees at such a width.
    Take(Tools::Flat);
    QVarLengthArray<QLineF, 512> lines;
    const double past = pen_.width / 4.0;
    const std::vector<TPoint> corners = Corners(points);
    for (std::size_t i = 1; i < corners.size(); ++i) {
        const QPointF from = Middle(corners[i - 1]);
        const QPointF way = Middle(corners[i]) - from;
        const double length = std::sqrt(QPointF::dotProduct(way, way));
        if (length > 0) {
            const QPointF more = way * (past / length);
            lines.append(QLineF(from - more, from + way + more));
        }
    }
    painter_.drawLines(lines.data(), static_cast<int>(lines.size()));
}

void PainterDC::Outline(std::span<const TPoint> points) {
    if (pen_.style == PenStyle::None || points.size() < 2) {
        return;
    }
    if (!AreStraight(points)) {
        SlantedLines(points);
        return;
    }
    for (std::size_t i = 1; i < points.size(); ++i) {
        StraightLine(points[i - 1], points[i]);
    }
}

void PainterDC::Polyline(std::span<const TPoint> points) {
    Outline(points);
}

void PainterDC::FineLines(std::span<const TPointF> points, double width) {
    SetSmooth(true);
    painter_.setPen(QPen(ToQColor(pen_.color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.setBrush(Qt::NoBrush);
    tools_ = Tools::None;
    Points joined;
    joined.reserve(static_cast<qsizetype>(points.size()));
    for (const TPointF& point : points) {
        joined.append({point.x, point.y});
    }
    painter_.drawPolyline(joined.data(), static_cast<int>(joined.size()));
}

void PainterDC::Curve(std::span<const TPointF> points, double width) {
    if (pen_.style == PenStyle::None) {
        return;
    }
    QImage* picture = Picture();
    const auto isFinite = [](const TPointF& point) {
        return std::isfinite(point.x) && std::isfinite(point.y);
    };
    auto first = points.begin();
    while (true) {
        first = std::find_if(first, points.end(), isFinite);
        const auto last = std::find_if_not(first, points.end(), isFinite);
        if (first == last) {
            return;
        }
        const std::span<const TPointF> part(first, last);
        if (picture != nullptr) {
            PaintCurve(*picture, SeenOf(*picture), part,
                       {scale_, origin_, width, ToQColor(pen_.color).rgb()});
        } else {
            FineLines(part, width);
        }
        first = last;
    }
}

void PainterDC::FillPolygon(std::span<const TPoint> points) {
    const Points middles = Middles(Corners(points));
    const auto count = static_cast<int>(middles.size());
    Take(Tools::Area);
    if (!onGrid_ || count < kManyCorners) {
        SetSmooth(true);
        painter_.drawPolygon(middles.data(), count);
        return;
    }
    // Qt fills a polygon of many corners several times faster with hard edges; a hairline makes them smooth.
    SetSmooth(false);
    painter_.drawPolygon(middles.data(), count);
    SetSmooth(true);
    QPen hairline(ToQColor(brush_.color), 0);
    hairline.setCosmetic(true);
    painter_.setPen(hairline);
    painter_.setBrush(Qt::NoBrush);
    painter_.drawPolyline(middles.data(), count);
    painter_.drawLine(middles.last(), middles.first());
    tools_ = Tools::None;
}

void PainterDC::Polygon(std::span<const TPoint> points) {
    if (points.empty()) {
        return;
    }
    if (!brush_.hollow) {
        FillPolygon(points);
    }
    std::vector<TPoint> closed(points.begin(), points.end());
    closed.push_back(points.front());
    Outline(closed);
}

void PainterDC::Line(const TPoint& from, const TPoint& to) {
    Outline(std::array{from, to});
}

const QImage& PainterDC::MarkOf(const TSize& size) {
    const auto known = std::find_if(marks_.rbegin(), marks_.rend(), [&](const Mark& mark) {
        return mark.size == size && mark.pen == pen_ && mark.brush == brush_;
    });
    if (known != marks_.rend()) {
        if (known != marks_.rbegin()) {
            std::iter_swap(known, marks_.rbegin()); // the next one is mostly the same
        }
        return marks_.back().picture;
    }
    if (marks_.size() >= kMarksKept) {
        marks_.clear();
    }
    QImage picture(std::max(1, qRound(size.cx * scale_)), std::max(1, qRound(size.cy * scale_)),
                   QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    picture.setDevicePixelRatio(scale_);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(ToQPen(pen_, Qt::RoundCap));
    painter.setBrush(ToQBrush(brush_));
    PaintEllipse(painter, {0, 0, picture.width() / scale_, picture.height() / scale_}, pen_);
    painter.end();
    marks_.push_back({size, pen_, brush_, std::move(picture)});
    return marks_.back().picture;
}

void PainterDC::Ellipse(const TRect& rect) {
    if (rect.IsEmpty()) {
        return;
    }
    if (onGrid_ && rect.Width() <= kLargestMark && rect.Height() <= kLargestMark) {
        SetSmooth(false);
        painter_.drawImage(
            QPointF((GridX(rect.left) - origin_.x()) / scale_, (GridY(rect.top) - origin_.y()) / scale_),
            MarkOf({rect.Width(), rect.Height()}));
        return;
    }
    SetSmooth(true);
    Take(Tools::None);
    painter_.setPen(ToQPen(pen_, Qt::RoundCap));
    painter_.setBrush(ToQBrush(brush_));
    PaintEllipse(painter_, ToQRect(rect), pen_);
}

void PainterDC::Rectangle(const TRect& rect) {
    if (!brush_.hollow && !rect.IsEmpty()) {
        FillGrid(ToGrid(rect), ToQColor(brush_.color));
    }
    Border(rect, pen_);
}

void PainterDC::FillRect(const TRect& rect, TColor color) {
    if (!rect.IsEmpty()) {
        FillGrid(ToGrid(rect), ToQColor(color));
    }
}

void PainterDC::FrameRect(const TRect& rect, TColor color) {
    Border(rect, {color, 1, PenStyle::Solid});
}

void PainterDC::SetClip(const TRect& rect) {
    clip_ = painter_.deviceTransform().mapRect(ToQRect(rect));
    painter_.setClipRect(ToQRect(rect), Qt::ReplaceClip);
}

void PainterDC::ClearClip() {
    clip_.reset();
    painter_.setClipping(false);
}

void PainterDC::TextOut(const TPoint& at, std::string_view text) {
    const int before = align_ == TextAlign::Left     ? 0
                       : align_ == TextAlign::Center ? GetTextExtent(text).cx / 2
                                                     : GetTextExtent(text).cx;
    Take(Tools::Text);
    painter_.drawText(QPoint(at.x - before, at.y + font_->Ascent()), ToQString(text));
}

TSize PainterDC::GetTextExtent(std::string_view text) const {
    return font_->Extent(text);
}

void PainterDC::BlendRect(const TRect& rect, TColor color, std::uint8_t alpha) {
    if (rect.IsEmpty()) {
        return;
    }
    QColor blend = ToQColor(color);
    blend.setAlpha(alpha);
    FillGrid(ToGrid(rect), blend);
}

void PainterDC::DrawImage(const TRect& rect, const TImage& image) {
    const auto pixels = static_cast<std::int64_t>(image.width) * image.height;
    if (rect.IsEmpty() || image.width <= 0 || pixels <= 0 ||
        static_cast<std::int64_t>(image.pixels.size()) < pixels) {
        return;
    }
    SetSmooth(false);
    // Borrowed, not copied; without transparency the rows need no blending.
    const QImage picture(reinterpret_cast<const uchar*>(image.pixels.data()), image.width, image.height,
                         qsizetype{4} * image.width,
                         IsOpaque(image) ? QImage::Format_RGB32 : QImage::Format_ARGB32);
    painter_.drawImage(ToQRect(rect), picture);
}

} // namespace owl
