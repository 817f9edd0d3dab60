// SPDX-License-Identifier: GPL-3.0-or-later
// A surface to draw on that is a QPainter's.
#pragma once

#include "host/toolkit/dc.h"

#include <QImage>
#include <QPointF>

#include <memory>
#include <optional>

class QColor;
class QPainter;

namespace owl {

class SetFont;

/// Draws with a painter on any device: window, picture, SVG, PDF, printer. A point is the middle of its
/// pixel, and a line covers both its end points. Slanted lines, curves and polygons are smooth. On a window
/// or picture that is scaled but not turned, level and upright lines, frames and fills cover whole device
/// pixels, and a pen of width 1 stays inside its row or column at every scale. The pen of a rectangle or an
/// ellipse lies inside it. The painter must outlive the surface, which gives it back as it was; meanwhile
/// nobody else changes it, and the surface's clip is the only one. GUI thread.
class ORVANTA_TOOLKIT_API PainterDC final : public TDC {
public:
    explicit PainterDC(QPainter& painter);
    ~PainterDC() override;

    void SelectPen(const TPen& pen) override;
    void SelectBrush(const TBrush& brush) override;
    void SelectFont(const TFont& font) override;
    void SetTextColor(TColor color) override;
    TextAlign SetTextAlign(TextAlign align) override;
    void Polyline(std::span<const TPoint> points) override;
    void Curve(std::span<const TPointF> points, double width) override;
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
    /// Draws nothing when the picture has fewer pixels than its size says.
    void DrawImage(const TRect& rect, const TImage& image) override;

private:
    /// What the painter's pen and brush are set for.
    enum class Tools { None, Round, Flat, Area, Text };
    /// A small ellipse, painted once and then copied: a curve has a mark at every point.
    struct Mark {
        TSize size;
        TPen pen;
        TBrush brush;
        QImage picture;
    };

    void Take(Tools tools);
    void SetSmooth(bool smooth);
    int GridX(int x) const;
    int GridY(int y) const;
    QRect ToGrid(const TRect& rect) const;
    int GridWidth(int penWidth) const;
    /// Whose pixels can be written; null when there is none.
    QImage* Picture() const;
    /// What the clip leaves of it.
    QRect SeenOf(const QImage& picture) const;
    void FillGrid(const QRect& area, const QColor& color);
    void FillStrip(const QRect& strip, const TPen& pen);
    void Border(const TRect& rect, const TPen& pen);
    void StraightLine(const TPoint& from, const TPoint& to);
    void SlantedLines(std::span<const TPoint> points);
    void Outline(std::span<const TPoint> points);
    void FineLines(std::span<const TPointF> points, double width);
    void FillPolygon(std::span<const TPoint> points);
    const QImage& MarkOf(const TSize& size);

    QPainter& painter_;
    double scale_ = 1; ///< grid pixels to a logical one; the grid is the device's where that can be addressed
    QPointF origin_;   ///< of the logical pixels on the grid
    bool onGrid_ = false;
    std::optional<QRect> clip_; ///< device pixels
    TPen pen_;
    TBrush brush_;
    std::shared_ptr<SetFont> font_;
    TColor textColor_ = 0;
    TextAlign align_ = TextAlign::Left;
    Tools tools_ = Tools::None;
    bool smooth_ = true;
    std::vector<Mark> marks_;
};

} // namespace owl
