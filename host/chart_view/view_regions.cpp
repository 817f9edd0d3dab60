// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/view_regions.h"

#include "host/chart_view/head_places.h"

#include <algorithm>
#include <cmath>

using orvanta::chart::Place;
using orvanta::chart::Squares;

namespace {

constexpr double kMostStretch = 1.8;

unsigned char Lower(char c) {
    return static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
}

/// The sensors that have a place, and their squares.
struct PlacedSensors {
    std::vector<const SensorType*> sensors;
    Squares squares;
};

PlacedSensors PlaceSensors(const SensorList& sensors) {
    PlacedSensors placed;
    std::vector<Place> places;
    for (const SensorType* sensor : sensors) {
        const ElectInfo electrode = sensor->GetElectInfo();
        if (electrode.Known) {
            placed.sensors.push_back(sensor);
            places.push_back(orvanta::chart::Projected(electrode.Position));
        }
    }
    // A view asks at every paint and every step of a resize, mostly for the sensors that it asked for before.
    static std::vector<Place> lastPlaces;
    static Squares lastSquares = orvanta::chart::Spread({});
    if (places != lastPlaces) {
        lastSquares = orvanta::chart::Spread(places);
        lastPlaces = places;
    }
    placed.squares = lastSquares;
    return placed;
}

/// From the head to pixels.
class OnScreen {
public:
    OnScreen(const Squares& squares, const MyRect& region) {
        const owl::TRect edges = region.Edges();
        scaleX_ = std::max(0, region.width) / (2 * squares.reachX);
        scaleY_ = std::max(0, region.height) / (squares.top + squares.bottom);
        scaleX_ = std::min(scaleX_, scaleY_ * kMostStretch);
        scaleY_ = std::min(scaleY_, scaleX_ * kMostStretch);
        x_ = (edges.left + edges.right) / 2.0;
        y_ = (edges.top + edges.bottom) / 2.0 + (squares.top - squares.bottom) / 2 * scaleY_;
    }

    owl::TPoint At(const Place& place) const {
        return {static_cast<int>(std::lround(x_ + place.x * scaleX_)),
                static_cast<int>(std::lround(y_ + place.y * scaleY_))};
    }
    /// The pixels of a square; the same size wherever it lies.
    owl::TRect Square(const Place& centre, double half) const {
        const owl::TPoint corner = At({centre.x - half, centre.y - half});
        return {corner.x, corner.y, corner.x + static_cast<int>(2 * half * scaleX_),
                corner.y + static_cast<int>(2 * half * scaleY_)};
    }

private:
    double x_ = 0, y_ = 0, scaleX_ = 0, scaleY_ = 0;
};

std::vector<owl::TPoint> OnPixels(const OnScreen& screen, const std::vector<Place>& line) {
    std::vector<owl::TPoint> points(line.size());
    std::transform(line.begin(), line.end(), points.begin(),
                   [&screen](const Place& place) { return screen.At(place); });
    return points;
}

} // namespace

bool ElectrodeNameOrder::operator()(const std::string& a, const std::string& b) const {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char x, char y) { return Lower(x) < Lower(y); });
}

ViewRegions Get2DViewRegions(const SensorList& sensors, const MyRect& region) {
    const PlacedSensors placed = PlaceSensors(sensors);
    const OnScreen screen(placed.squares, region);
    ViewRegions regions;
    for (std::size_t i = 0; i < placed.sensors.size(); ++i) {
        regions.emplace(placed.sensors[i]->GetName(),
                        screen.Square(placed.squares.centres[i], placed.squares.half));
    }
    return regions;
}

HeadOutline Get2DHeadOutline(const SensorList& sensors, const MyRect& region) {
    const OnScreen screen(PlaceSensors(sensors).squares, region);
    const orvanta::chart::HeadLines& lines = orvanta::chart::LinesOfHead();
    return {OnPixels(screen, lines.head), OnPixels(screen, lines.nose), OnPixels(screen, lines.leftEar),
            OnPixels(screen, lines.rightEar)};
}
