// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/dialogs/palette_preview.h"

#include "host/chart_view/maps/map_painting.h"
#include "host/chart_view/topography/electrode_hull.h"
#include "host/toolkit/painter_dc.h"
#include "host/toolkit/qt_painting.h"

#include <QPainter>

#include <array>

namespace orvanta::chart {

namespace {

/// A posterior rhythm, stronger on the right: a map with a peak, a slope and a trough.
MapData SampleData() {
    struct Sample {
        double x, y, value;
    };
    // Of the 10-20 system, as seen from above.
    constexpr std::array<Sample, 15> kSamples = {{{-0.31, -0.95, 2.0},
                                                  {0.31, -0.95, 2.2},
                                                  {-0.81, -0.59, 1.2},
                                                  {0.81, -0.59, 1.5},
                                                  {0, -0.5, 0.2},
                                                  {-1, 0, 3.0},
                                                  {-0.5, 0, 2.0},
                                                  {0, 0, 2.4},
                                                  {0.5, 0, 3.0},
                                                  {1, 0, 3.6},
                                                  {-0.81, 0.59, 6.2},
                                                  {0, 0.5, 6.6},
                                                  {0.81, 0.59, 8.0},
                                                  {-0.31, 0.95, 7.5},
                                                  {0.31, 0.95, 9.5}}};
    MapData data;
    for (const Sample& sample : kSamples) {
        data.electrodes.push_back({"", OnHead({sample.x, sample.y}), true});
        data.values.push_back(sample.value);
    }
    return data;
}

} // namespace

QIcon PaletteIcon(const Palette& palette, const QSize& size, const QWidget& widget) {
    const double ratio = widget.devicePixelRatioF();
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    QImage strip(static_cast<int>(kPaletteColors), 1, QImage::Format_RGB32);
    for (std::size_t i = 0; i < kPaletteColors; ++i) {
        strip.setPixelColor(static_cast<int>(i), 0, owl::ToQColor(palette.colors[i]));
    }
    QPainter painter(&pixmap);
    painter.drawImage(QRect(QPoint(0, 0), size), strip);
    painter.setPen(widget.palette().color(QPalette::Mid));
    painter.drawRect(0, 0, size.width() - 1, size.height() - 1);
    painter.end();
    QIcon icon(pixmap);
    icon.addPixmap(pixmap, QIcon::Selected); // the colours are what is chosen by
    return icon;
}

void PalettePreview::Show(const Palette& palette) {
    palette_ = &palette;
    update();
}

void PalettePreview::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    owl::PainterDC dc(painter);
    MapDisplay display;
    display.palette = palette_->name;
    display.ownScale = false;
    MapSight sight;
    sight.area = {0, 0, width(), height()};
    sight.textColor = owl::FromQColor(palette().color(QPalette::WindowText));
    sight.backColor = owl::FromQColor(palette().color(QPalette::Window));
    sight.pixelRatio = devicePixelRatioF();
    static const MapData sample = SampleData();
    MapFields fields;
    PaintMap(dc, nullptr, sample, display, sight, fields);
}

} // namespace orvanta::chart
