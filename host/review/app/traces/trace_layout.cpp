// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_layout.h"

#include <algorithm>
#include <cmath>

namespace orvanta::review {

namespace {

constexpr int kMargin = 6;
constexpr int kTextPadding = 2;
constexpr int kOverviewHeight = 40;
/// Below so much room for the traces the overview goes, then the rows of labels.
constexpr int kLeastPlot = 80;
constexpr int kLeastSpacing = 10;

} // namespace

double TraceLayout::XOf(double time) const {
    return plot.left + (time - start) / duration * plot.Width();
}

double TraceLayout::TimeAt(double x) const {
    return plot.IsEmpty() ? start : start + (x - plot.left) / plot.Width() * duration;
}

double TraceLayout::SecondsPerPixel() const {
    return plot.Width() > 0 ? duration / plot.Width() : duration;
}

std::optional<int> TraceLayout::LineAt(int y) const {
    if (y < plot.top || y >= plot.bottom || lineCount == 0) {
        return std::nullopt;
    }
    return std::min(lineCount - 1, static_cast<int>((y - plot.top) / spacing));
}

TraceLayout LayOutTraces(const owl::TRect& client, const LayoutInput& input) {
    TraceLayout layout;
    layout.start = input.window.start;
    layout.duration = input.window.duration;
    layout.rowHeight = input.fontHeight + 2 * kTextPadding;

    const int left = std::min(client.right, client.left + input.nameWidth + 2 * kMargin);
    const int right = std::max(left, client.right - kMargin);
    const int ruler = 2 * input.fontHeight + 3 * kTextPadding;
    int overview = kOverviewHeight + kMargin;
    int room = client.Height() - ruler;
    if (room - overview - layout.labelRows * layout.rowHeight < kLeastPlot) {
        layout.labelRows = 1;
    }
    if (room - overview - layout.labelRows * layout.rowHeight < kLeastPlot) {
        overview = 0;
    }
    const int top = std::min(client.bottom, client.top + layout.labelRows * layout.rowHeight + 1);
    const int bottom = std::max(top, client.bottom - ruler - overview);
    layout.labels = {left, client.top, right, top};
    layout.names = {client.left, top, left, bottom};
    layout.plot = {left, top, right, bottom};
    layout.ruler = {left, bottom, right, std::min(client.bottom, bottom + ruler)};
    if (overview > 0) {
        layout.overview = {left, client.bottom - overview, right, client.bottom - kMargin};
    }

    const int least = std::max(kLeastSpacing, input.fontHeight - 1);
    const int fit = std::max(1, layout.plot.Height() / least);
    layout.capacity = input.window.lineCount > 0 ? std::min(fit, input.window.lineCount) : fit;
    const int most = std::max(0, input.lines - layout.capacity);
    layout.firstLine = std::clamp(input.window.firstLine, 0, most);
    layout.lineCount = std::clamp(input.lines - layout.firstLine, 0, layout.capacity);
    layout.spacing = layout.lineCount > 0 ? static_cast<double>(layout.plot.Height()) / layout.lineCount : 0;
    if (layout.spacing <= 0) {
        layout.lineCount = 0;
    }
    return layout;
}

} // namespace orvanta::review
