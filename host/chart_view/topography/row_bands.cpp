// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/row_bands.h"

#include <QThreadPool>
#include <QtConcurrent>

#include <algorithm>
#include <exception>
#include <vector>

namespace orvanta::chart {

namespace {

struct Band {
    int first, last;
};

} // namespace

void ForRowBands(int rows, int step, const std::function<void(int, int)>& work) {
    constexpr int kBandsOfCore = 2; // some rows take longer than others
    const int wanted = kBandsOfCore * QThreadPool::globalInstance()->maxThreadCount();
    const int steps = (rows + step - 1) / step;
    const int height = (steps + wanted - 1) / std::max(1, wanted) * step;
    if (height >= rows) {
        if (rows > 0) {
            work(0, rows);
        }
        return;
    }
    std::vector<Band> bands;
    for (int first = 0; first < rows; first += height) {
        bands.push_back({first, std::min(rows, first + height)});
    }
    try {
        QtConcurrent::blockingMap(bands, [&work](const Band& band) { work(band.first, band.last); });
    } catch (const QUnhandledException& thrown) {
        std::rethrow_exception(thrown.exception());
    }
}

} // namespace orvanta::chart
