// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/chart/scatter_chart.h"

#include <QChartView>
#include <QEvent>
#include <QGraphicsLayout>
#include <QLineSeries>
#include <QLocale>
#include <QScatterSeries>
#include <QVBoxLayout>
#include <QValueAxis>

#include <algorithm>
#include <cmath>

namespace owl {

namespace {

constexpr double kPointSize = 3.0;
constexpr double kLineWidth = 1.5;
constexpr QSize kPreferredSize{480, 320};
constexpr int kTicks = 7; ///< about so many
constexpr float kGridStrength = 0.15F;

/// Blue and orange keep apart for all kinds of colour vision; each has to stand out from its ground.
struct Inks {
    QColor points, line;
};

Inks InksOn(const QColor& ground) {
    const bool dark = ground.lightness() < 128;
    return dark ? Inks{QColor(0x6c, 0xb6, 0xff), QColor(0xff, 0xa9, 0x4d)}
                : Inks{QColor(0x1f, 0x5f, 0xb4), QColor(0xc8, 0x50, 0x00)};
}

/// An axis over these values, ends at round numbers.
void Fit(QValueAxis& axis, double low, double high) {
    if (!(low < high)) {
        const double margin = std::max(1.0, std::abs(low) / 10);
        low -= margin;
        high += margin;
    }
    axis.setRange(low, high);
    axis.setTickCount(kTicks);
    axis.applyNiceNumbers();
}

} // namespace

ScatterChart::ScatterChart(QWidget* parent)
    : QWidget(parent), chart_(new QChart), points_(new QScatterSeries), line_(new QLineSeries),
      xAxis_(new QValueAxis), yAxis_(new QValueAxis) {
    auto* view = new QChartView(chart_);
    view->setRenderHint(QPainter::Antialiasing);
    view->setFocusPolicy(Qt::NoFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(view);

    chart_->legend()->hide();
    chart_->setLocale(QLocale());
    chart_->setLocalizeNumbers(true);
    chart_->setBackgroundRoundness(0);
    chart_->setMargins({8, 8, 16, 8});
    chart_->layout()->setContentsMargins(0, 0, 0, 0);
    chart_->addAxis(xAxis_, Qt::AlignBottom);
    chart_->addAxis(yAxis_, Qt::AlignLeft);
    for (QXYSeries* series : {static_cast<QXYSeries*>(line_), static_cast<QXYSeries*>(points_)}) {
        chart_->addSeries(series);
        series->attachAxis(xAxis_);
        series->attachAxis(yAxis_);
    }
    points_->setMarkerShape(QScatterSeries::MarkerShapeCircle);
    points_->setMarkerSize(kPointSize);
    FitAxes();
    TakePalette();
}

void ScatterChart::SetTitles(const QString& title, const QString& xAxis, const QString& yAxis) {
    // The chart reads titles as markup.
    chart_->setTitle(title.toHtmlEscaped());
    xAxis_->setTitleText(xAxis.toHtmlEscaped());
    yAxis_->setTitleText(yAxis.toHtmlEscaped());
}

void ScatterChart::SetPoints(QList<QPointF> points) {
    points.removeIf([](const QPointF& point) { return !qIsFinite(point.x()) || !qIsFinite(point.y()); });
    std::ranges::stable_sort(points, {}, &QPointF::x);
    points_->replace(points);
    PlaceLine();
}

void ScatterChart::SetLine(double slope, double intercept) {
    slopeAndIntercept_.reset();
    if (qIsFinite(slope) && qIsFinite(intercept)) {
        slopeAndIntercept_.emplace(slope, intercept);
    }
    PlaceLine();
}

void ScatterChart::ClearLine() {
    slopeAndIntercept_.reset();
    PlaceLine();
}

QList<QPointF> ScatterChart::Points() const {
    return points_->points();
}

std::optional<QLineF> ScatterChart::Line() const {
    const QList<QPointF> ends = line_->points();
    return ends.isEmpty() ? std::nullopt : std::optional(QLineF(ends.first(), ends.last()));
}

QRectF ScatterChart::Range() const {
    return {QPointF(xAxis_->min(), yAxis_->min()), QPointF(xAxis_->max(), yAxis_->max())};
}

QSize ScatterChart::sizeHint() const {
    return kPreferredSize;
}

void ScatterChart::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange ||
        event->type() == QEvent::StyleChange) {
        TakePalette();
    }
}

void ScatterChart::PlaceLine() {
    const QList<QPointF> points = points_->points();
    QList<QPointF> ends;
    if (slopeAndIntercept_ && !points.isEmpty()) {
        for (const double x : {points.first().x(), points.last().x()}) {
            ends << QPointF(x, slopeAndIntercept_->x() * x + slopeAndIntercept_->y());
        }
    }
    line_->replace(ends);
    FitAxes();
}

void ScatterChart::FitAxes() {
    const QList<QPointF> shown = points_->points() + line_->points();
    if (shown.isEmpty()) {
        xAxis_->setRange(0, 1);
        yAxis_->setRange(0, 1);
        return;
    }
    const auto [left, right] = std::ranges::minmax(shown, {}, &QPointF::x);
    const auto [low, high] = std::ranges::minmax(shown, {}, &QPointF::y);
    Fit(*xAxis_, left.x(), right.x());
    Fit(*yAxis_, low.y(), high.y());
}

void ScatterChart::TakePalette() {
    const QColor ground = palette().color(QPalette::Base);
    const QColor text = palette().color(QPalette::Text);
    const Inks inks = InksOn(ground);
    QColor grid = text;
    grid.setAlphaF(kGridStrength);
    chart_->setBackgroundBrush(ground);
    chart_->setTitleBrush(text);
    QFont heading = font();
    heading.setBold(true);
    chart_->setTitleFont(heading);
    for (QValueAxis* axis : {xAxis_, yAxis_}) {
        axis->setLabelsColor(text);
        axis->setLabelsFont(font());
        axis->setTitleBrush(text);
        axis->setTitleFont(font());
        axis->setLinePenColor(text);
        axis->setGridLineColor(grid);
    }
    points_->setPen(Qt::NoPen);
    points_->setColor(inks.points);
    line_->setPen(QPen(inks.line, kLineWidth));
}

} // namespace owl
