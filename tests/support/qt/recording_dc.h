// SPDX-License-Identifier: GPL-3.0-or-later
// A surface that writes down what is drawn on it.
#pragma once

#include "host/toolkit/dc.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace orvanta::test {

/// Every call becomes a line, its kind first. Rectangles are left,top,right,bottom, colours #RRGGBB:
///
///     pen #RRGGBB 2 solid            (or dotted, none)
///     brush #RRGGBB                  (or brush hollow)
///     font "Verdana" 12 bold italic
///     textcolor #RRGGBB
///     align right                    (or left, center)
///     polyline 10,20 30,40
///     curve 1.2 0.50,20.50 1.25,30.00
///     polygon 10,20 30,40 50,20
///     ellipse 0,0,5,5
///     line 10,20 30,40
///     rectangle 0,0,5,5
///     fill 0,0,5,5 #RRGGBB
///     frame 0,0,5,5 #RRGGBB
///     clip 0,0,5,5
///     noclip
///     text 5,6 right "Fp1"           (with the alignment then)
///     blend 0,0,5,5 #RRGGBB 128
///     image 0,0,40,60 2x3            (the picture's own size)
///
/// Every character of a text, whatever its font, is kCharacterWidth pixels wide and as high as the font.
class RecordingDC : public owl::TDC {
public:
    static constexpr int kCharacterWidth = 6;

    const std::vector<std::string>& Calls() const { return calls_; }
    /// Only the calls of these kinds, in their order.
    std::vector<std::string> CallsOf(std::initializer_list<std::string_view> kinds) const;
    std::vector<std::string> CallsOf(std::string_view kind) const { return CallsOf({kind}); }
    /// The texts written, in their order.
    const std::vector<std::string>& Texts() const { return texts_; }
    /// The pictures drawn, in their order.
    const std::vector<owl::TImage>& Images() const { return images_; }
    /// Forgets the calls; what is selected stays.
    void Clear();

    void SelectPen(const owl::TPen& pen) override;
    void SelectBrush(const owl::TBrush& brush) override;
    void SelectFont(const owl::TFont& font) override;
    void SetTextColor(owl::TColor color) override;
    owl::TextAlign SetTextAlign(owl::TextAlign align) override;
    void Polyline(std::span<const owl::TPoint> points) override;
    void Curve(std::span<const owl::TPointF> points, double width) override;
    void Polygon(std::span<const owl::TPoint> points) override;
    void Ellipse(const owl::TRect& rect) override;
    void Line(const owl::TPoint& from, const owl::TPoint& to) override;
    void Rectangle(const owl::TRect& rect) override;
    void FillRect(const owl::TRect& rect, owl::TColor color) override;
    void FrameRect(const owl::TRect& rect, owl::TColor color) override;
    void SetClip(const owl::TRect& rect) override;
    void ClearClip() override;
    void TextOut(const owl::TPoint& at, std::string_view text) override;
    owl::TSize GetTextExtent(std::string_view text) const override;
    void BlendRect(const owl::TRect& rect, owl::TColor color, std::uint8_t alpha) override;
    void DrawImage(const owl::TRect& rect, const owl::TImage& image) override;

private:
    std::vector<std::string> calls_, texts_;
    std::vector<owl::TImage> images_;
    owl::TFont font_;
    owl::TextAlign align_ = owl::TextAlign::Left;
};

} // namespace orvanta::test
