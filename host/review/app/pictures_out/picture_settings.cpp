// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/pictures_out/picture_settings.h"

#include "host/review/app/main_window/host_text.h"
#include "host/review/app/main_window/text_setting.h"
#include "spectra_contract/platform.h"

#include <QString>

#include <algorithm>
#include <cmath>

namespace orvanta::review {

namespace {

constexpr double kDotsPerInch = 96;
constexpr double kMillimetresPerInch = 25.4;
constexpr double kLeastSide = 100;   ///< logical pixels
constexpr double kMostSide = 20'000; ///< the same, 5.3 m
constexpr int kMostPixelsAside = 32'767;
constexpr double kMostPixels = 100e6;

constexpr const char* kFormat = "PictureFormat";
constexpr const char* kUnit = "PictureUnit";
constexpr const char* kResolution = "PictureResolution";

/// Nearly whole numbers are whole: what was typed as pixels came here by a division.
int Ceil(double value) {
    constexpr double kHair = 1e-6;
    return static_cast<int>(std::ceil(value - kHair));
}

QString Size(double width, double height) {
    return QString("%1 × %2").arg(std::lround(width)).arg(std::lround(height));
}

template <typename Enum>
Enum ReadEnum(const GenericPlatform& platform, const char* key, Enum last) {
    const int value = platform.GetUser()->GetInt(kHostSection, key, 0);
    return static_cast<Enum>(std::clamp(value, 0, static_cast<int>(last)));
}

} // namespace

double InUnit(double logical, LengthUnit unit, int resolution) {
    const double inches = logical / kDotsPerInch;
    switch (unit) {
    case LengthUnit::Millimetres:
        return inches * kMillimetresPerInch;
    case LengthUnit::Inches:
        return inches;
    case LengthUnit::Pixels:
        break;
    }
    return inches * resolution;
}

double FromUnit(double length, LengthUnit unit, int resolution) {
    return length * kDotsPerInch / InUnit(kDotsPerInch, unit, resolution);
}

owl::TSize PixelSize(const PictureSettings& settings) {
    const double scale = ScaleOf(settings);
    return {static_cast<int>(std::lround(settings.width * scale)),
            static_cast<int>(std::lround(settings.height * scale))};
}

owl::TSize LogicalSize(const PictureSettings& settings) {
    return {Ceil(settings.width), Ceil(settings.height)};
}

double ScaleOf(const PictureSettings& settings) {
    return settings.resolution / kDotsPerInch;
}

std::string ProblemOf(const PictureSettings& settings) {
    const double scale = ScaleOf(settings);
    if (std::min(settings.width, settings.height) < kLeastSide) {
        const auto least = [&](LengthUnit unit) {
            return QString::number(InUnit(kLeastSide, unit, settings.resolution), 'f', 0);
        };
        return HostQText("pictureSmall",
                         "That is too small to show anything. Choose at least %1 mm, which are "
                         "%2 pixels, on each side.")
            .arg(least(LengthUnit::Millimetres), least(LengthUnit::Pixels))
            .toStdString();
    }
    const double most = std::max(settings.width, settings.height);
    if (most > kMostSide) {
        return HostQText("pictureLarge", "That is too large. Choose at most %1 mm on each side.")
            .arg(QString::number(InUnit(kMostSide, LengthUnit::Millimetres, 1), 'f', 0))
            .toStdString();
    }
    const bool pixels = settings.format == PictureFormat::Png;
    if (pixels &&
        (most * scale > kMostPixelsAside || settings.width * scale * settings.height * scale > kMostPixels)) {
        return HostQText("picturePixels", "%1 pixels are too many: there can be 100 million, and 32767 on a "
                                          "side. Choose a smaller size or resolution, or SVG or PDF.")
            .arg(Size(settings.width * scale, settings.height * scale))
            .toStdString();
    }
    return {};
}

std::string SizeText(const PictureSettings& settings) {
    const auto in = [&](LengthUnit unit) {
        return Size(InUnit(settings.width, unit, settings.resolution),
                    InUnit(settings.height, unit, settings.resolution));
    };
    return HostQText("pictureSize", "%1 pixels, %2 mm")
        .arg(in(LengthUnit::Pixels), in(LengthUnit::Millimetres))
        .toStdString();
}

PictureSettings LoadPictureSettings(const GenericPlatform& platform, const owl::TSize& size) {
    constexpr int kLeastResolution = 48, kMostResolution = 1200;
    PictureSettings settings;
    settings.format = ReadEnum(platform, kFormat, PictureFormat::Pdf);
    settings.unit = ReadEnum(platform, kUnit, LengthUnit::Inches);
    settings.resolution =
        std::clamp(platform.GetUser()->GetInt(kHostSection, kResolution, settings.resolution),
                   kLeastResolution, kMostResolution);
    settings.width = size.cx;
    settings.height = size.cy;
    return settings;
}

void StorePictureSettings(GenericPlatform& platform, const PictureSettings& settings) {
    UserType& user = *platform.GetUser();
    user.PutInt(kHostSection, kFormat, static_cast<int>(settings.format));
    user.PutInt(kHostSection, kUnit, static_cast<int>(settings.unit));
    user.PutInt(kHostSection, kResolution, settings.resolution);
}

} // namespace orvanta::review
