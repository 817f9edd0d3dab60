// SPDX-License-Identifier: GPL-3.0-or-later
// Palettes as they look on a map.
#pragma once

#include "host/chart_view/topography/palettes.h"

#include <QIcon>
#include <QWidget>

namespace orvanta::chart {

/// The colours from left to right. \param widget gives colours and resolution
QIcon PaletteIcon(const Palette& palette, const QSize& size, const QWidget& widget);

/// A small map in one palette.
class PalettePreview final : public QWidget {
public:
    explicit PalettePreview(QWidget* parent) : QWidget(parent) {}

    void Show(const Palette& palette);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Palette* palette_ = &Palettes().front();
};

} // namespace orvanta::chart
