// SPDX-License-Identifier: GPL-3.0-or-later
// How large, how fine and in which format a picture is saved.
#pragma once

#include "host/review/app/render/picture_file.h"

#include <string>

class GenericPlatform;

namespace orvanta::review {

enum class LengthUnit { Pixels, Millimetres, Inches };

/// A length of logical pixels (1/96 inch) in the unit. \param resolution dots per inch, for pixels
double InUnit(double logical, LengthUnit unit, int resolution);
/// The way back.
double FromUnit(double length, LengthUnit unit, int resolution);

struct PictureSettings {
    PictureFormat format = PictureFormat::Png;
    LengthUnit unit = LengthUnit::Pixels; ///< in which the user looks at the size
    int resolution = 96;                  ///< dots per inch
    double width = 0, height = 0;         ///< logical pixels of 1/96 inch

    bool operator==(const PictureSettings&) const = default;
};

/// Of the picture as pixels.
owl::TSize PixelSize(const PictureSettings& settings);
/// What is drawn: whole logical pixels that cover the picture.
owl::TSize LogicalSize(const PictureSettings& settings);
/// Device pixels to a logical one.
double ScaleOf(const PictureSettings& settings);
/// Why there can be no such picture, and what to do; empty when there can.
std::string ProblemOf(const PictureSettings& settings);
/// "1000 × 500 pixels, 265 × 132 mm"
std::string SizeText(const PictureSettings& settings);

/// The user's format, unit and resolution, kept from picture to picture, with this size.
PictureSettings LoadPictureSettings(const GenericPlatform& platform, const owl::TSize& size);
void StorePictureSettings(GenericPlatform& platform, const PictureSettings& settings);

} // namespace orvanta::review
