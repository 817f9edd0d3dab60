// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/flat_map.h"

#include "host/chart_view/topography/contours.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvanta::chart {

namespace {

constexpr int kGap = 4;
constexpr int kBarWidth = 10;
/// A head of a smaller radius has no room for a bar.
constexpr int kSmallestHead = 24;
constexpr int kElectrodeReach = 3;
/// Of the head's radius: names and values are written where electrodes are so far apart.
constexpr int kRoomForText = 60;
/// Stripes of the extrapolated part: their period and width, in thousandths of the raster's side.
constexpr int kStripePeriod = 24;
constexpr int kStripeWidth = 8;
constexpr double kStripeShare = 0.55;

owl::TColor Mixed(owl::TColor color, owl::TColor other, double share) {
    const auto channel = [share](std::uint8_t from, std::uint8_t to) {
        return static_cast<std::uint8_t>(std::lround(std::lerp(from, to, share)));
    };
    return owl::Rgb(channel(owl::Red(color), owl::Red(other)), channel(owl::Green(color), owl::Green(other)),
                    channel(owl::Blue(color), owl::Blue(other)));
}

std::uint32_t PixelOf(owl::TColor color, double alpha) {
    return static_cast<std::uint32_t>(std::lround(255 * alpha)) << 24U |
           static_cast<std::uint32_t>(owl::Red(color)) << 16U |
           static_cast<std::uint32_t>(owl::Green(color)) << 8U | owl::Blue(color);
}

/// On the screen's grid, in the square of the layout.
class OnScreen {
public:
    OnScreen(const FlatMapLayout& layout, const MapRaster& raster)
        : layout_(layout), perPixel_(static_cast<double>(layout.disc.Width()) / raster.Side()) {}

    owl::TPoint At(const Place& place) const {
        return {layout_.centre.x + static_cast<int>(std::lround(place.x * layout_.headRadius)),
                layout_.centre.y + static_cast<int>(std::lround(place.y * layout_.headRadius))};
    }
    owl::TPoint At(const GridPoint& point) const {
        return {layout_.disc.left + static_cast<int>(std::lround((point.column + 0.5) * perPixel_)),
                layout_.disc.top + static_cast<int>(std::lround((point.row + 0.5) * perPixel_))};
    }

private:
    const FlatMapLayout& layout_;
    double perPixel_;
};

std::vector<owl::TPoint> OnPixels(const OnScreen& screen, const auto& line) {
    std::vector<owl::TPoint> points(line.size());
    std::transform(line.begin(), line.end(), points.begin(),
                   [&screen](const auto& point) { return screen.At(point); });
    return points;
}

/// The lines of the head, on a wider one of the background: they are seen on every colour.
void PaintHead(owl::TDC& dc, const OnScreen& screen, const FlatMap& map) {
    const HeadLines& head = LinesOfHead();
    const std::vector<owl::TPoint> lines[] = {OnPixels(screen, head.head), OnPixels(screen, head.nose),
                                              OnPixels(screen, head.rightEar),
                                              OnPixels(screen, head.leftEar)};
    for (const owl::TPen& pen : {owl::TPen{map.backColor, 4}, owl::TPen{map.textColor, 2}}) {
        dc.SelectPen(pen);
        for (const auto& line : lines) {
            dc.Polyline(line);
        }
    }
}

void PaintContours(owl::TDC& dc, const FlatMap& map, const OnScreen& screen) {
    const int side = map.raster.Side();
    std::vector<float> square(static_cast<std::size_t>(side) * static_cast<std::size_t>(side),
                              std::numeric_limits<float>::quiet_NaN());
    for (std::size_t i = 0; i < map.field.size(); ++i) {
        square[map.raster.Pixels()[i]] = map.field[i];
    }
    for (const double level : ContourLevels(map.scale.low, map.scale.high, map.contours)) {
        const owl::TColor color = map.colors[ColorIndex(level, map.scale.low, map.scale.high)];
        const bool light = owl::Red(color) + 2 * owl::Green(color) + owl::Blue(color) > 4 * 128;
        dc.SelectPen({Mixed(color, light ? owl::Rgb(0, 0, 0) : owl::Rgb(255, 255, 255), 0.45), 1});
        for (const auto& line : ContourLines(square, side, level)) {
            std::vector<owl::TPoint> points = OnPixels(screen, line);
            points.erase(std::unique(points.begin(), points.end()), points.end());
            dc.Polyline(points);
        }
    }
}

void PaintElectrodes(owl::TDC& dc, const FlatMap& map, const FlatMapLayout& layout, const OnScreen& screen) {
    const bool room = layout.headRadius >= kRoomForText;
    for (const MapElectrode& electrode : map.electrodes) {
        const owl::TPoint at = screen.At(electrode.place);
        if (map.showElectrodes) {
            const owl::TColor black = owl::Rgb(0, 0, 0);
            const owl::TColor white = owl::Rgb(255, 255, 255);
            dc.SelectPen({electrode.used ? white : black, 1});
            dc.SelectBrush({electrode.used ? black : white, false});
            dc.Ellipse(
                owl::TRect{at.x, at.y, at.x + 1, at.y + 1}.InflatedBy(kElectrodeReach, kElectrodeReach));
        }
        std::string text = map.showNames ? electrode.name : "";
        if (map.showValues) {
            text += (text.empty() ? "" : " ") + electrode.value;
        }
        if (room && !text.empty()) {
            const owl::TSize extent = dc.GetTextExtent(text);
            const owl::TRect box{at.x - extent.cx / 2 - 1, at.y + kElectrodeReach + 1,
                                 at.x - extent.cx / 2 + extent.cx + 1,
                                 at.y + kElectrodeReach + 1 + extent.cy};
            dc.BlendRect(box, owl::Rgb(255, 255, 255), 150); // readable on every colour
            dc.SetTextColor(owl::Rgb(0, 0, 0));
            dc.SetTextAlign(owl::TextAlign::Center);
            dc.TextOut({at.x, box.top}, text);
        }
    }
}

void PaintScale(owl::TDC& dc, const FlatMap& map, const FlatMapLayout& layout) {
    const owl::TRect& bar = layout.scale;
    owl::TImage strip{1, static_cast<int>(kPaletteColors), {}};
    for (std::size_t i = kPaletteColors; i-- > 0;) {
        strip.pixels.push_back(PixelOf(map.colors[i], 1));
    }
    dc.DrawImage(bar, strip);
    dc.FrameRect(bar, map.textColor);
    dc.SetTextColor(map.textColor);
    dc.SetTextAlign(owl::TextAlign::Left);
    const int line = dc.GetTextExtent(map.scale.highText).cy;
    dc.TextOut({bar.right + kGap, bar.top}, map.scale.highText);
    dc.TextOut({bar.right + kGap, bar.bottom - line}, map.scale.lowText);
    dc.TextOut({bar.right + kGap, (bar.top + bar.bottom - line) / 2}, map.scale.unit);
}

} // namespace

FlatMapLayout LayOutFlatMap(const owl::TRect& area, double reach, int lineHeight, int numbersWidth,
                            bool withTitle, bool withScale) {
    FlatMapLayout layout;
    owl::TRect rest = area.InflatedBy(-kGap, -kGap);
    if (withTitle) {
        layout.title = {rest.left, rest.top, rest.right, std::min(rest.bottom, rest.top + lineHeight)};
        rest.top = std::min(rest.bottom, rest.top + lineHeight + kGap);
    }
    // In radii of the head: how far the picture reaches up to the nose, down and to the sides.
    const double up = std::max(kNoseReach, reach);
    const double aside = std::max(kEarReach, reach);
    const auto radiusIn = [&](int width, int height) {
        return static_cast<int>(std::min(width / (2 * aside), height / (up + reach)));
    };
    const int withBar = rest.Width() - (kBarWidth + 2 * kGap + numbersWidth);
    const bool bar = withScale && radiusIn(withBar, rest.Height()) >= kSmallestHead;
    const int width = bar ? withBar : rest.Width();
    layout.headRadius = std::max(0, radiusIn(width, rest.Height()));
    const int pictureHeight = static_cast<int>(layout.headRadius * (up + reach));
    layout.centre = {rest.left + width / 2, rest.top + (rest.Height() - pictureHeight) / 2 +
                                                static_cast<int>(layout.headRadius * up)};
    const int half = static_cast<int>(std::lround(layout.headRadius * reach));
    layout.disc = {layout.centre.x - half, layout.centre.y - half, layout.centre.x + half,
                   layout.centre.y + half};
    if (bar) {
        const int left = rest.right - numbersWidth - kGap - kBarWidth;
        layout.scale = {left, layout.centre.y - layout.headRadius, left + kBarWidth,
                        layout.centre.y + layout.headRadius};
        layout.numbersWidth = numbersWidth;
    }
    return layout;
}

owl::TImage DiscOf(const FlatMap& map) {
    const int side = map.raster.Side();
    owl::TImage image{
        side, side,
        std::vector<std::uint32_t>(static_cast<std::size_t>(side) * static_cast<std::size_t>(side))};
    const double pixel = 2 * map.raster.Reach() / side;
    for (std::size_t i = 0; i < map.field.size(); ++i) {
        const std::uint32_t at = map.raster.Pixels()[i];
        owl::TColor color = map.colors[ColorIndex(map.field[i], map.scale.low, map.scale.high)];
        const auto diagonal = static_cast<int>(at) % side + static_cast<int>(at) / side;
        const bool stripe = diagonal * 1000 / side % kStripePeriod < kStripeWidth;
        if (map.beyond[i] && stripe) {
            color = Mixed(color, map.backColor, kStripeShare);
        }
        const Place& place = map.raster.Places()[i];
        const double toEdge = map.raster.Reach() - std::hypot(place.x, place.y);
        image.pixels[at] = PixelOf(color, std::clamp(toEdge / pixel + 0.5, 0.0, 1.0));
    }
    return image;
}

void PaintFlatMap(owl::TDC& dc, const FlatMap& map) {
    dc.SelectFont(map.font);
    int numbers = 0;
    for (const std::string& text : {map.scale.lowText, map.scale.highText, map.scale.unit}) {
        numbers = std::max(numbers, dc.GetTextExtent(text).cx);
    }
    const int line = dc.GetTextExtent("0").cy;
    const FlatMapLayout layout = LayOutFlatMap(map.area, map.raster.Reach(), line, numbers,
                                               !map.title.empty(), map.showScale && !map.field.empty());
    if (!map.title.empty()) {
        dc.SetTextColor(map.textColor);
        dc.SetTextAlign(owl::TextAlign::Center);
        dc.TextOut({(layout.title.left + layout.title.right) / 2, layout.title.top}, map.title);
    }
    if (layout.headRadius <= 0) {
        return;
    }
    const OnScreen screen(layout, map.raster);
    if (!map.field.empty()) {
        dc.DrawImage(layout.disc, DiscOf(map));
        PaintContours(dc, map, screen);
    }
    PaintHead(dc, screen, map);
    PaintElectrodes(dc, map, layout, screen);
    if (map.field.empty()) {
        dc.SetTextColor(map.textColor);
        dc.SetTextAlign(owl::TextAlign::Center);
        dc.TextOut({layout.centre.x, layout.centre.y - line / 2}, map.nothing);
    }
    if (!layout.scale.IsEmpty()) {
        PaintScale(dc, map, layout);
    }
}

} // namespace orvanta::chart
