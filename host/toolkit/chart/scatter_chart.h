// SPDX-License-Identifier: GPL-3.0-or-later
// A chart of points and the line fitted to them.
#pragma once

#include "host/toolkit/export.h"

#include <QLineF>
#include <QList>
#include <QPointF>
#include <QWidget>

#include <optional>

class QChart;
class QLineSeries;
class QScatterSeries;
class QValueAxis;

namespace owl {

/// Circles of 3 × 3 logical pixels over two axes that fit them, without legend, in the colours of the
/// palette.
class ORVANTA_TOOLKIT_API ScatterChart final : public QWidget {
public:
    explicit ScatterChart(QWidget* parent = nullptr);

    /// \param xAxis name and unit of the horizontal values, \param yAxis of the vertical ones
    void SetTitles(const QString& title, const QString& xAxis, const QString& yAxis);
    /// Points with a coordinate that is not finite are left out.
    void SetPoints(QList<QPointF> points);
    /// y = slope · x + intercept, drawn from the leftmost point to the rightmost; not finite for none.
    void SetLine(double slope, double intercept);
    void ClearLine();

    /// What is drawn, x ascending.
    QList<QPointF> Points() const;
    std::optional<QLineF> Line() const;
    /// What the axes show, in the units of the points.
    QRectF Range() const;

    QSize sizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void PlaceLine();
    void FitAxes();
    void TakePalette();

    QChart* chart_;
    QScatterSeries* points_;
    QLineSeries* line_;
    QValueAxis* xAxis_;
    QValueAxis* yAxis_;
    std::optional<QPointF> slopeAndIntercept_;
};

} // namespace owl
