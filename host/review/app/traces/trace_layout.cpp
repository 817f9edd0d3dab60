// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_layout.h"

#include <algorithm>
#include <cmath>

namespace orvanta::review {

namespace {

constexpr int kMargin = 6;
constexpr int kTextPadding = 2;
constexpr int kTicks = 5;
constexpr int kLeastOverview = 24;
constexpr int kMostOverview = 40;
constexpr int kOverviewShare = 14; ///< of the height, one part
/// Below so much room for the traces the overview goes.
constexpr int kLeastPlot = 80;
/// Lines of text that keep apart, for a second row of labels to be worth its room.
constexpr double kRoomyLines = 1.6;
constexpr double kLeastSpacing = 6.5;
constexpr int kLeastName = 9;
/// Of a name's height: letters without the room above and below them.
constexpr double kLetters = 0.92;

int OverviewHeight(int height) {
    return std::clamp(height / kOverviewShare, kLeastOverview, kMostOverview);
}

/// Distance of lines that still can be told apart.
double LeastSpacing(int fontHeight) {
    return std::max(kLeastSpacing, fontHeight / 2.0);
}

void PlaceLines(TraceLayout& layout, const LayoutInput& input, int height) {
    const int fit = std::max(1, static_cast<int>(height / LeastSpacing(input.fontHeight)));
    layout.capacity = input.window.lineCount > 0 ? std::min(fit, input.window.lineCount) : fit;
    const int most = std::max(0, input.lines - layout.capacity);
    layout.firstLine = std::clamp(input.window.firstLine, 0, most);
    layout.lineCount = std::clamp(input.lines - layout.firstLine, 0, layout.capacity);
    layout.spacing = layout.lineCount > 0 ? static_cast<double>(height) / layout.lineCount : 0;
    if (layout.spacing <= 0) {
        layout.lineCount = 0;
    }
    const int largest = std::max(kLeastName, input.fontHeight);
    layout.nameHeight = layout.lineCount == 0
                            ? largest
                            : std::clamp(static_cast<int>(layout.spacing / kLetters), kLeastName, largest);
    layout.nameColumns = layout.lineCount > 1 && layout.spacing < kLetters * layout.nameHeight ? 2 : 1;
}

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

    const int ruler = input.fontHeight + kTicks + kTextPadding;
    int overview = OverviewHeight(client.Height()) + kMargin;
    const auto room = [&](int rows) { return client.Height() - ruler - overview - rows * layout.rowHeight; };
    const auto lines =
        std::max(1, input.window.lineCount > 0 ? std::min(input.lines, input.window.lineCount) : input.lines);
    layout.labelRows = !input.events                                                              ? 0
                       : room(2) < kRoomyLines * input.fontHeight * lines || room(2) < kLeastPlot ? 1
                                                                                                  : 2;
    if (room(layout.labelRows) < kLeastPlot) {
        overview = 0;
    }
    const int top = std::min(client.bottom, client.top + layout.labelRows * layout.rowHeight + 1);
    const int bottom = std::max(top, client.bottom - ruler - overview);
    PlaceLines(layout, input, bottom - top);

    const int names = layout.nameColumns *
                          ((input.nameWidth * layout.nameHeight + input.fontHeight - 1) / input.fontHeight) +
                      (layout.nameColumns + 1) * kMargin;
    const int left = std::min(client.right, client.left + names);
    const int right = std::max(left, client.right - kMargin);
    layout.labels = {left, client.top, right, top};
    layout.names = {client.left, top, left, bottom};
    layout.plot = {left, top, right, bottom};
    layout.ruler = {left, bottom, right, std::min(client.bottom, bottom + ruler)};
    if (overview > 0) {
        layout.overview = {left, client.bottom - overview, right, client.bottom - kMargin};
    }
    return layout;
}

} // namespace orvanta::review
