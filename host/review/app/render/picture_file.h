// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures as files: pixels or vectors.
#pragma once

#include "host/toolkit/dc.h"

#include <QImage>

#include <functional>
#include <optional>
#include <string>

namespace orvanta::review {

enum class PictureFormat { Png, Svg, Pdf };

/// By the ending of a file name, whatever its case; nothing for another ending.
std::optional<PictureFormat> FormatOf(const std::string& file);
/// The same. \throws cli::UsageError for another ending
PictureFormat RequiredFormat(const std::string& file);

struct Picture {
    owl::TSize size;   ///< logical pixels of 1/96 inch
    double scale = 1;  ///< device pixels to a logical one, for PNG
    std::string title; ///< for the file's description
    std::function<void(owl::TDC&)> draw;
    owl::TSize
        pixels{}; ///< of a PNG, where they are not those of size and scale; what is drawn beyond is cut
};

/// The picture as pixels, on white. \throws std::runtime_error when memory does not suffice
QImage PixelsOf(const Picture& picture);

/// The contents of the file, on white. PNG says its resolution, so that it has the same size on paper at
/// every scale; SVG and PDF keep texts as texts. \throws std::runtime_error when memory does not suffice
std::string Encode(const Picture& picture, PictureFormat format);

} // namespace orvanta::review
