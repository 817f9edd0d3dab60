// SPDX-License-Identifier: GPL-3.0-or-later
// A surface to draw on that writes SVG.
#pragma once

#include "host/toolkit/dc.h"
#include "host/toolkit/set_font.h"

#include <QByteArray>
#include <QXmlStreamWriter>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orvanta::review {

/// One element for each thing drawn, clips as clip paths and texts as texts, which Qt's own generator cannot
/// all do. Pixels are covered as by owl::PainterDC: a point is the middle of its pixel, the pen of a
/// rectangle or an ellipse lies inside it. GUI thread.
class SvgDC final : public owl::TDC {
public:
    /// Starts with a white sheet.
    SvgDC(const owl::TSize& size, const std::string& title);

    /// The whole file; nothing can be drawn any more.
    std::string Finish();

    void SelectPen(const owl::TPen& pen) override;
    void SelectBrush(const owl::TBrush& brush) override { brush_ = brush; }
    void SelectFont(const owl::TFont& font) override;
    void SetTextColor(owl::TColor color) override { textColor_ = color; }
    owl::TextAlign SetTextAlign(owl::TextAlign align) override { return std::exchange(align_, align); }
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
    void Number(const char* attribute, double value);
    void Box(double x, double y, double width, double height);
    void Stroke(const owl::TPen& pen, const char* cap);
    void Fill();
    void Border(const owl::TRect& rect, const owl::TPen& pen, bool filled);
    void StraightLine(const owl::TPoint& from, const owl::TPoint& to);
    void Points(std::span<const owl::TPoint> points);

    QByteArray text_;
    QXmlStreamWriter xml_;
    owl::TPen pen_;
    owl::TBrush brush_;
    std::shared_ptr<owl::SetFont> font_;
    QString families_; ///< of the font, best first
    owl::TColor textColor_ = 0;
    owl::TextAlign align_ = owl::TextAlign::Left;
    std::vector<owl::TRect> clips_; ///< the clip paths written so far
    bool clipped_ = false;
};

} // namespace orvanta::review
