// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/render/picture_file.h"

#include "host/review/app/render/svg_dc.h"
#include "host/review/cli/exit_status.h"
#include "host/toolkit/painter_dc.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageWriter>
#include <QPainter>
#include <QPdfWriter>

#include <array>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace orvanta::review {

namespace {

constexpr double kDotsPerInch = 96;
constexpr double kPointsPerInch = 72;
constexpr double kMetersPerInch = 0.0254;
constexpr const char* kCreator = "Orvanta";

owl::TSize PixelSize(const Picture& picture) {
    if (picture.pixels != owl::TSize{}) {
        return picture.pixels;
    }
    return {static_cast<int>(std::lround(picture.size.cx * picture.scale)),
            static_cast<int>(std::lround(picture.size.cy * picture.scale))};
}

} // namespace

QImage PixelsOf(const Picture& picture) {
    const owl::TSize pixels = PixelSize(picture);
    QImage image(pixels.cx, pixels.cy, QImage::Format_RGB32);
    if (image.isNull()) {
        throw std::runtime_error("not enough memory for the picture (choose a smaller size or scale)");
    }
    const int resolution = static_cast<int>(std::lround(kDotsPerInch * picture.scale / kMetersPerInch));
    image.setDotsPerMeterX(resolution);
    image.setDotsPerMeterY(resolution);
    image.setDevicePixelRatio(picture.scale);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        owl::PainterDC dc(painter);
        picture.draw(dc);
    }
    return image;
}

namespace {

std::string ToPng(const Picture& picture) {
    const QImage image = PixelsOf(picture);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "png");
    writer.setText("Title", QString::fromStdString(picture.title));
    writer.setText("Software", kCreator);
    if (!writer.write(image)) {
        throw std::runtime_error("PNG: " + writer.errorString().toStdString() +
                                 " (choose a smaller size or scale)");
    }
    return buffer.data().toStdString();
}

std::string ToSvg(const Picture& picture) {
    SvgDC dc(picture.size, picture.title);
    picture.draw(dc);
    return dc.Finish();
}

std::string ToPdf(const Picture& picture) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setTitle(QString::fromStdString(picture.title));
        writer.setCreator(kCreator);
        const auto points = [](int pixels) { return std::ceil(pixels * kPointsPerInch / kDotsPerInch); };
        writer.setPageSize(QPageSize(QSizeF(points(picture.size.cx), points(picture.size.cy)),
                                     QPageSize::Point, QString(), QPageSize::ExactMatch));
        writer.setPageMargins({});
        QPainter painter(&writer);
        const double dots = writer.resolution() / kDotsPerInch;
        painter.scale(dots, dots);
        owl::PainterDC dc(painter);
        picture.draw(dc);
    }
    return buffer.data().toStdString();
}

} // namespace

std::optional<PictureFormat> FormatOf(const std::string& file) {
    constexpr std::array kEndings{std::pair("png", PictureFormat::Png), std::pair("svg", PictureFormat::Svg),
                                  std::pair("pdf", PictureFormat::Pdf)};
    const QString ending = QFileInfo(QString::fromStdString(file)).suffix().toLower();
    for (const auto& [name, format] : kEndings) {
        if (ending == name) {
            return format;
        }
    }
    return std::nullopt;
}

PictureFormat RequiredFormat(const std::string& file) {
    const std::optional<PictureFormat> format = FormatOf(file);
    if (!format) {
        throw cli::UsageError(file + ": no kind of picture (let --out end in .png, .svg or .pdf)");
    }
    return *format;
}

std::string Encode(const Picture& picture, PictureFormat format) {
    switch (format) {
    case PictureFormat::Svg:
        return ToSvg(picture);
    case PictureFormat::Pdf:
        return ToPdf(picture);
    case PictureFormat::Png:
        break;
    }
    return ToPng(picture);
}

} // namespace orvanta::review
