// SPDX-License-Identifier: GPL-3.0-or-later
// A surface to draw on.
#pragma once

#include "host/toolkit/export.h"
#include "host/toolkit/geometry.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace owl {

enum class PenStyle { Solid, Dotted, None };

struct TPen {
    TColor color = 0;
    int width = 1;
    PenStyle style = PenStyle::Solid;

    bool operator==(const TPen&) const = default;
};

struct TBrush {
    TColor color = 0;
    bool hollow = false; ///< fills nothing

    bool operator==(const TBrush&) const = default;
};

struct TFont {
    std::string face = "Verdana";
    int height = 12; ///< of a line without leading, pixels
    bool bold = false;
    bool italic = false;

    bool operator==(const TFont&) const = default;
};

/// Which side of a text stands at the given x.
enum class TextAlign { Left, Center, Right };

/// Pixels of a picture, row by row from the top, 0xAARRGGBB, alpha not premultiplied.
struct TImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    bool operator==(const TImage&) const = default;
};

/// What painters draw on. Coordinates are whole logical pixels, but for curves; the right and bottom edge of
/// a rectangle do not belong to it. Starts with a black pen of width 1, a white brush, the standard font,
/// black text aligned left, and no clip. Texts are UTF-8.
class ORVANTA_TOOLKIT_API TDC {
public:
    TDC() = default;
    virtual ~TDC();
    TDC(const TDC&) = delete;
    TDC& operator=(const TDC&) = delete;

    virtual void SelectPen(const TPen& pen) = 0;
    virtual void SelectBrush(const TBrush& brush) = 0;
    virtual void SelectFont(const TFont& font) = 0;
    virtual void SetTextColor(TColor color) = 0;
    /// \return the alignment until now
    virtual TextAlign SetTextAlign(TextAlign align) = 0;

    /// Joins the points with the pen, corners rounded.
    virtual void Polyline(std::span<const TPoint> points) = 0;
    /// Joins the points, which go from left to right, smooth, with a round pen of the selected pen's colour
    /// and this width, finer than a pixel where the device is. A point that is not finite breaks the curve.
    virtual void Curve(std::span<const TPointF> points, double width) = 0;
    /// Closed; outline with the pen, inside with the brush.
    virtual void Polygon(std::span<const TPoint> points) = 0;
    /// The ellipse inside the rectangle, outline with the pen, inside with the brush.
    virtual void Ellipse(const TRect& rect) = 0;
    virtual void Line(const TPoint& from, const TPoint& to) = 0;
    /// Outline with the pen, inside with the brush.
    virtual void Rectangle(const TRect& rect) = 0;
    virtual void FillRect(const TRect& rect, TColor color) = 0;
    /// A border of one pixel inside the rectangle.
    virtual void FrameRect(const TRect& rect, TColor color) = 0;

    /// Nothing is drawn outside the rectangle from now on; replaces an earlier clip.
    virtual void SetClip(const TRect& rect) = 0;
    virtual void ClearClip() = 0;

    /// \param at top of the text, and its left, centre or right by the alignment
    virtual void TextOut(const TPoint& at, std::string_view text) = 0;
    /// Width and height of a text in the selected font.
    virtual TSize GetTextExtent(std::string_view text) const = 0;

    /// Lays a colour over the rectangle. \param alpha 0 invisible, 255 opaque
    virtual void BlendRect(const TRect& rect, TColor color, std::uint8_t alpha) = 0;
    /// Draws the picture into the rectangle, scaled without smoothing.
    virtual void DrawImage(const TRect& rect, const TImage& image) = 0;
};

} // namespace owl
