// SPDX-License-Identifier: GPL-3.0-or-later
// A part of a surface.
#pragma once

#include "host/toolkit/dc.h"

#include <vector>

namespace orvanta::chart {

/// Draws inside a rectangle of another surface, whose upper left corner is the origin; nothing gets out.
class PartDC final : public owl::TDC {
public:
    /// Both must outlive it. \param part not empty
    PartDC(owl::TDC& whole, const owl::TRect& part);
    /// Clears the clip of the whole.
    ~PartDC() override;

    void SelectPen(const owl::TPen& pen) override { whole_.SelectPen(pen); }
    void SelectBrush(const owl::TBrush& brush) override { whole_.SelectBrush(brush); }
    void SelectFont(const owl::TFont& font) override { whole_.SelectFont(font); }
    void SetTextColor(owl::TColor color) override { whole_.SetTextColor(color); }
    owl::TextAlign SetTextAlign(owl::TextAlign align) override { return whole_.SetTextAlign(align); }
    void Polyline(std::span<const owl::TPoint> points) override { whole_.Polyline(Moved(points)); }
    void Curve(std::span<const owl::TPointF> points, double width) override;
    void Polygon(std::span<const owl::TPoint> points) override { whole_.Polygon(Moved(points)); }
    void Ellipse(const owl::TRect& rect) override { whole_.Ellipse(Moved(rect)); }
    void Line(const owl::TPoint& from, const owl::TPoint& to) override {
        whole_.Line(Moved(from), Moved(to));
    }
    void Rectangle(const owl::TRect& rect) override { whole_.Rectangle(Moved(rect)); }
    void FillRect(const owl::TRect& rect, owl::TColor color) override { whole_.FillRect(Moved(rect), color); }
    void FrameRect(const owl::TRect& rect, owl::TColor color) override {
        whole_.FrameRect(Moved(rect), color);
    }
    void SetClip(const owl::TRect& rect) override;
    void ClearClip() override { whole_.SetClip(part_); }
    void TextOut(const owl::TPoint& at, std::string_view text) override { whole_.TextOut(Moved(at), text); }
    owl::TSize GetTextExtent(std::string_view text) const override { return whole_.GetTextExtent(text); }
    void BlendRect(const owl::TRect& rect, owl::TColor color, std::uint8_t alpha) override {
        whole_.BlendRect(Moved(rect), color, alpha);
    }
    void DrawImage(const owl::TRect& rect, const owl::TImage& image) override {
        whole_.DrawImage(Moved(rect), image);
    }

private:
    owl::TPoint Moved(const owl::TPoint& point) const;
    owl::TRect Moved(const owl::TRect& rect) const;
    std::vector<owl::TPoint> Moved(std::span<const owl::TPoint> points) const;

    owl::TDC& whole_;
    owl::TRect part_;
};

} // namespace orvanta::chart
