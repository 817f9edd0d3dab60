// SPDX-License-Identifier: GPL-3.0-or-later
// A surface to draw on that is a window's picture.
#pragma once

#include "host/toolkit/dc.h"

class QPainter;

namespace owl {

/// Draws with a painter. A point is the middle of its pixel, and a line covers both its end points. The pen
/// of rectangles and ellipses lies inside them. GUI thread.
class ORVANTA_TOOLKIT_API PictureDC final : public TDC {
public:
    explicit PictureDC(QPainter& painter);

    void SelectPen(const TPen& pen) override;
    void SelectBrush(const TBrush& brush) override;
    void SelectFont(const TFont& font) override;
    void SetTextColor(TColor color) override;
    TextAlign SetTextAlign(TextAlign align) override;
    void Polyline(std::span<const TPoint> points) override;
    void Polygon(std::span<const TPoint> points) override;
    void Ellipse(const TRect& rect) override;
    void Line(const TPoint& from, const TPoint& to) override;
    void Rectangle(const TRect& rect) override;
    void FillRect(const TRect& rect, TColor color) override;
    void FrameRect(const TRect& rect, TColor color) override;
    void SetClip(const TRect& rect) override;
    void ClearClip() override;
    void TextOut(const TPoint& at, std::string_view text) override;
    TSize GetTextExtent(std::string_view text) const override;
    void BlendRect(const TRect& rect, TColor color, std::uint8_t alpha) override;
    /// Draws nothing for a picture with fewer pixels than its size says.
    void DrawImage(const TRect& rect, const TImage& image) override;

private:
    QPainter& painter_;
    TColor textColor_ = 0;
    TextAlign align_ = TextAlign::Left;
};

} // namespace owl
