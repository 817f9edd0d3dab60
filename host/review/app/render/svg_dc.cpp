// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/render/svg_dc.h"

#include "host/toolkit/qt_painting.h"

#include <QBuffer>
#include <QFontInfo>
#include <QImage>

#include <algorithm>
#include <array>
#include <cmath>

namespace orvanta::review {

namespace {

QString ColorName(owl::TColor color) {
    return owl::ToQColor(color).name();
}

bool IsStraight(const owl::TPoint& from, const owl::TPoint& to) {
    return from.x == to.x || from.y == to.y;
}

/// Without the characters that XML cannot hold.
QString XmlText(std::string_view text) {
    QString plain = owl::ToQString(text);
    plain.removeIf([](QChar c) { return c < u' ' && c != u'\t'; });
    return plain;
}

QString ClipName(std::ptrdiff_t index) {
    return "clip" + QString::number(index);
}

} // namespace

SvgDC::SvgDC(const owl::TSize& size, const std::string& title) : xml_(&text_) {
    brush_.color = owl::Rgb(255, 255, 255);
    SelectFont({});
    xml_.setAutoFormatting(true);
    xml_.setAutoFormattingIndent(0);
    xml_.writeStartDocument();
    xml_.writeStartElement("svg");
    xml_.writeDefaultNamespace("http://www.w3.org/2000/svg");
    xml_.writeNamespace("http://www.w3.org/1999/xlink", "xlink");
    Number("width", size.cx);
    Number("height", size.cy);
    xml_.writeAttribute("viewBox", QString("0 0 %1 %2").arg(size.cx).arg(size.cy));
    xml_.writeTextElement("title", XmlText(title));
    xml_.writeTextElement("desc", "Orvanta");
    FillRect({0, 0, size.cx, size.cy}, brush_.color);
}

std::string SvgDC::Finish() {
    xml_.writeEndDocument();
    return text_.toStdString();
}

void SvgDC::SelectPen(const owl::TPen& pen) {
    pen_ = pen;
    pen_.width = std::max(1, pen.width);
}

void SvgDC::SelectFont(const owl::TFont& font) {
    if (font_ != nullptr && font == font_->Description()) {
        return;
    }
    font_ = owl::FontFor(font);
    QStringList families{"'" + QFontInfo(font_->Font()).family() + "'",
                         "'" + QString::fromStdString(font.face) + "'", "sans-serif"};
    families.removeDuplicates();
    families_ = families.join(", ");
}

void SvgDC::Number(const char* attribute, double value) {
    xml_.writeAttribute(attribute, QString::number(value));
}

void SvgDC::Box(double x, double y, double width, double height) {
    Number("x", x);
    Number("y", y);
    Number("width", width);
    Number("height", height);
}

void SvgDC::Stroke(const owl::TPen& pen, const char* cap) {
    if (pen.style == owl::PenStyle::None) {
        return;
    }
    xml_.writeAttribute("stroke", ColorName(pen.color));
    if (pen.width != 1) {
        Number("stroke-width", pen.width);
    }
    if (pen.style == owl::PenStyle::Dotted) {
        xml_.writeAttribute("stroke-dasharray", QString("%1 %2").arg(pen.width).arg(2 * pen.width));
    } else if (cap != nullptr) {
        xml_.writeAttribute("stroke-linecap", cap);
    }
}

void SvgDC::Fill() {
    xml_.writeAttribute("fill", brush_.hollow ? QString("none") : ColorName(brush_.color));
}

void SvgDC::Points(std::span<const owl::TPoint> points) {
    QString list;
    for (const owl::TPoint& point : points) {
        list +=
            (list.isEmpty() ? "" : " ") + QString::number(point.x) + ".5," + QString::number(point.y) + ".5";
    }
    xml_.writeAttribute("points", list);
}

void SvgDC::StraightLine(const owl::TPoint& from, const owl::TPoint& to) {
    // Both end pixels are covered whole.
    const double across =
        pen_.width / 2.0 - pen_.width / 2; // NOLINT(bugprone-integer-division): whole pixels
    const bool level = from.y == to.y;
    const auto [left, right] = std::minmax(from.x, to.x);
    const auto [top, bottom] = std::minmax(from.y, to.y);
    xml_.writeEmptyElement("line");
    Number("x1", level ? left : left + across);
    Number("y1", level ? top + across : top);
    Number("x2", level ? right + 1 : right + across);
    Number("y2", level ? bottom + across : bottom + 1);
    Stroke(pen_, nullptr);
}

void SvgDC::Polyline(std::span<const owl::TPoint> points) {
    if (points.size() < 2 || pen_.style == owl::PenStyle::None) {
        return;
    }
    if (points.size() == 2 && IsStraight(points[0], points[1])) {
        StraightLine(points[0], points[1]);
        return;
    }
    xml_.writeEmptyElement("polyline");
    Points(points);
    xml_.writeAttribute("fill", "none");
    Stroke(pen_, "round");
    xml_.writeAttribute("stroke-linejoin", "round");
}

void SvgDC::Curve(std::span<const owl::TPointF> points, double width) {
    if (pen_.style == owl::PenStyle::None) {
        return;
    }
    QString path;
    const char* step = "M";
    for (const owl::TPointF& point : points) {
        if (std::isfinite(point.x) && std::isfinite(point.y)) {
            path += step + QString::number(point.x, 'f', 2) + ' ' + QString::number(point.y, 'f', 2);
            step = "L";
        } else {
            step = "M";
        }
    }
    if (path.isEmpty()) {
        return;
    }
    xml_.writeEmptyElement("path");
    xml_.writeAttribute("d", path);
    xml_.writeAttribute("fill", "none");
    xml_.writeAttribute("stroke", ColorName(pen_.color));
    Number("stroke-width", width);
    xml_.writeAttribute("stroke-linecap", "round");
    xml_.writeAttribute("stroke-linejoin", "round");
}

void SvgDC::Polygon(std::span<const owl::TPoint> points) {
    if (points.empty()) {
        return;
    }
    xml_.writeEmptyElement("polygon");
    Points(points);
    Fill();
    Stroke(pen_, nullptr);
    xml_.writeAttribute("stroke-linejoin", "round");
}

void SvgDC::Ellipse(const owl::TRect& rect) {
    if (rect.IsEmpty()) {
        return;
    }
    const double half = pen_.style == owl::PenStyle::None ? 0 : pen_.width / 2.0;
    xml_.writeEmptyElement("ellipse");
    Number("cx", (rect.left + rect.right) / 2.0);
    Number("cy", (rect.top + rect.bottom) / 2.0);
    Number("rx", std::max(0.0, rect.Width() / 2.0 - half));
    Number("ry", std::max(0.0, rect.Height() / 2.0 - half));
    Fill();
    Stroke(pen_, nullptr);
}

void SvgDC::Line(const owl::TPoint& from, const owl::TPoint& to) {
    Polyline(std::array{from, to});
}

void SvgDC::Border(const owl::TRect& rect, const owl::TPen& pen, bool filled) {
    if (rect.IsEmpty()) {
        return;
    }
    const double inside = pen.style == owl::PenStyle::None ? 0 : pen.width;
    xml_.writeEmptyElement("rect");
    Box(rect.left + inside / 2, rect.top + inside / 2, std::max(0.0, rect.Width() - inside),
        std::max(0.0, rect.Height() - inside));
    if (filled) {
        Fill();
    } else {
        xml_.writeAttribute("fill", "none");
    }
    Stroke(pen, nullptr);
}

void SvgDC::Rectangle(const owl::TRect& rect) {
    Border(rect, pen_, true);
}

void SvgDC::FillRect(const owl::TRect& rect, owl::TColor color) {
    BlendRect(rect, color, 255);
}

void SvgDC::FrameRect(const owl::TRect& rect, owl::TColor color) {
    Border(rect, {color, 1, owl::PenStyle::Solid}, false);
}

void SvgDC::SetClip(const owl::TRect& rect) {
    ClearClip();
    const auto known = std::find(clips_.begin(), clips_.end(), rect);
    const QString name = ClipName(known - clips_.begin());
    if (known == clips_.end()) {
        clips_.push_back(rect);
        xml_.writeStartElement("clipPath");
        xml_.writeAttribute("id", name);
        xml_.writeEmptyElement("rect");
        Box(rect.left, rect.top, std::max(0, rect.Width()), std::max(0, rect.Height()));
        xml_.writeEndElement();
    }
    xml_.writeStartElement("g");
    xml_.writeAttribute("clip-path", "url(#" + name + ")");
    clipped_ = true;
}

void SvgDC::ClearClip() {
    if (std::exchange(clipped_, false)) {
        xml_.writeEndElement();
    }
}

void SvgDC::TextOut(const owl::TPoint& at, std::string_view text) {
    if (text.empty()) {
        return;
    }
    const QFont& font = font_->Font();
    xml_.writeStartElement("text");
    Number("x", at.x);
    Number("y", at.y + font_->Ascent());
    if (align_ != owl::TextAlign::Left) {
        xml_.writeAttribute("text-anchor", align_ == owl::TextAlign::Center ? "middle" : "end");
    }
    xml_.writeAttribute("fill", ColorName(textColor_));
    xml_.writeAttribute("font-family", families_);
    Number("font-size", QFontInfo(font).pixelSize());
    if (font.bold()) {
        xml_.writeAttribute("font-weight", "bold");
    }
    if (font.italic()) {
        xml_.writeAttribute("font-style", "italic");
    }
    xml_.writeAttribute("xml:space", "preserve");
    xml_.writeCharacters(XmlText(text));
    xml_.writeEndElement();
}

owl::TSize SvgDC::GetTextExtent(std::string_view text) const {
    return font_->Extent(text);
}

void SvgDC::BlendRect(const owl::TRect& rect, owl::TColor color, std::uint8_t alpha) {
    if (rect.IsEmpty()) {
        return;
    }
    xml_.writeEmptyElement("rect");
    Box(rect.left, rect.top, rect.Width(), rect.Height());
    xml_.writeAttribute("fill", ColorName(color));
    if (alpha != 255) {
        xml_.writeAttribute("fill-opacity", QString::number(alpha / 255.0, 'f', 3));
    }
}

void SvgDC::DrawImage(const owl::TRect& rect, const owl::TImage& image) {
    const auto pixels = static_cast<std::int64_t>(image.width) * image.height;
    if (rect.IsEmpty() || image.width <= 0 || pixels <= 0 ||
        static_cast<std::int64_t>(image.pixels.size()) < pixels) {
        return;
    }
    const QImage picture(reinterpret_cast<const uchar*>(image.pixels.data()), image.width, image.height,
                         qsizetype{4} * image.width, QImage::Format_ARGB32);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    xml_.writeEmptyElement("image");
    Box(rect.left, rect.top, rect.Width(), rect.Height());
    xml_.writeAttribute("preserveAspectRatio", "none");
    xml_.writeAttribute("image-rendering", "pixelated");
    // With the older name, which every reader knows.
    xml_.writeAttribute("xlink:href", "data:image/png;base64," + QString::fromLatin1(png.toBase64()));
}

} // namespace orvanta::review
