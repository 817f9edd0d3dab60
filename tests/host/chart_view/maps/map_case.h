// SPDX-License-Identifier: GPL-3.0-or-later
// A map window in a parent that writes down what it is told.
#pragma once

#include "host/chart_view/maps/map_window.h"
#include "tests/support/qt/fake_global_window.h"

#include <QImage>

#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace orvanta::test {

/// Writes down the messages of its maps.
class MapParent final : public owl::TWindow {
public:
    struct Told {
        unsigned message;
        WPARAM first;
        LPARAM second;
        bool operator==(const Told&) const = default;
    };

    LPARAM OnTurned(WPARAM first, LPARAM second) { return Tell(TMapWindow::kTurned, first, second); }
    LPARAM OnClicked(WPARAM first, LPARAM second) {
        return Tell(TMapWindow::kElectrodeClicked, first, second);
    }
    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

    std::vector<Told> told;

protected:
    static const owl::TResponseTable __entries; // NOLINT(bugprone-reserved-identifier)

private:
    LPARAM Tell(unsigned message, WPARAM first, LPARAM second) {
        told.push_back({message, first, second});
        return 0;
    }
};

/// The standard places of these names; unknown ones have none.
std::vector<ElectInfo> ElectrodesNamed(const std::vector<std::string>& names);
/// Of the 10-20 system.
std::vector<ElectInfo> TwentyOneElectrodes();

/// One map, shown.
class MapCase {
public:
    MapCase(const std::vector<ElectInfo>& electrodes, bool threeD, int width = 300, int height = 260);

    /// The window's own picture, drawn now.
    QImage Picture();
    /// Where an electrode was drawn: the middle of the points that hit it. In logical pixels.
    owl::TPoint PlaceOf(const std::string& electrode);
    /// True when it is drawn.
    bool Shows(const std::string& electrode);
    void SetValues(const std::vector<double>& values) { Map().SetValues(values, "", true); }
    /// A value for each electrode by its place.
    void SetField(const std::function<double(const HeadPosition&)>& field);
    void ChangeDisplay(const std::function<void(chart::MapDisplay&)>& change);

    TMapWindow& Map() { return *map_; }
    MapParent& Parent() { return parent_; }

    FakePlatform platform;

private:
    std::vector<ElectInfo> electrodes_;
    MapParent parent_;
    TMapWindow* map_;
};

} // namespace orvanta::test
