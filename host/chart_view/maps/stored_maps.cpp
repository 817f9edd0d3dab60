// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/stored_maps.h"

#include "host/chart_view/topography/palettes.h"
#include "spectra_contract/platform.h"

#include <algorithm>
#include <array>

namespace orvanta::chart {

namespace {

constexpr int kMostContours = 20;
constexpr int kOpaque = 100;
constexpr int kLongestName = 63;

/// Integers of one section.
class Section {
public:
    Section(UserType& user, const std::string& name) : user_(user), name_(name) {}

    int Read(const char* key, int defaultValue, int low, int high) const {
        return std::clamp(user_.GetInt(name_.c_str(), key, defaultValue), low, high);
    }
    std::uint16_t ReadCount(const char* key, std::uint16_t defaultValue) const {
        return static_cast<std::uint16_t>(Read(key, defaultValue, 1, kMostMapsAside));
    }
    bool Read(const char* key, bool defaultValue) const {
        return user_.GetInt(name_.c_str(), key, defaultValue ? 1 : 0) != 0;
    }
    void Write(const char* key, int value) { user_.PutInt(name_.c_str(), key, value); }

private:
    UserType& user_;
    const std::string& name_;
};

} // namespace

int PaletteIndex(const std::string& name) {
    const std::span<const Palette> palettes = Palettes();
    const auto found = std::ranges::find(palettes, name, &Palette::name);
    return found != palettes.end() ? static_cast<int>(found - palettes.begin()) : 0;
}

StoredMaps ReadStoredMaps(const GenericPlatform& platform, const std::string& section) {
    const Section stored(*platform.GetUser(), section);
    StoredMaps maps;
    maps.grid = {stored.ReadCount("MapRows", maps.grid.rows),
                 stored.ReadCount("MapColumns", maps.grid.columns)};
    maps.display.electrodes = stored.Read("MapElectrodes", maps.display.electrodes);
    maps.display.names = stored.Read("MapNames", maps.display.names);
    maps.display.values = stored.Read("MapValues", maps.display.values);
    maps.display.contours = stored.Read("MapContours", maps.display.contours, 0, kMostContours);
    maps.display.opacity = stored.Read("MapOpacity", maps.display.opacity, 0, kOpaque);
    maps.singlePalette = stored.Read("MapSinglePalette", maps.singlePalette);
    maps.locked = stored.Read("MapLocked", maps.locked);
    maps.table = stored.Read("MapTable", maps.table);
    std::array<char, kLongestName + 1> palette{};
    platform.ReadString(section.c_str(), "MapPalette", maps.display.palette.c_str(), palette.data(),
                        kLongestName);
    maps.display.palette = Palettes()[static_cast<std::size_t>(PaletteIndex(palette.data()))].name;
    return maps;
}

void StoreMaps(GenericPlatform& platform, const std::string& section, const StoredMaps& maps) {
    Section stored(*platform.GetUser(), section);
    stored.Write("MapRows", maps.grid.rows);
    stored.Write("MapColumns", maps.grid.columns);
    stored.Write("MapElectrodes", maps.display.electrodes ? 1 : 0);
    stored.Write("MapNames", maps.display.names ? 1 : 0);
    stored.Write("MapValues", maps.display.values ? 1 : 0);
    stored.Write("MapContours", maps.display.contours);
    stored.Write("MapOpacity", maps.display.opacity);
    stored.Write("MapSinglePalette", maps.singlePalette ? 1 : 0);
    stored.Write("MapLocked", maps.locked ? 1 : 0);
    stored.Write("MapTable", maps.table ? 1 : 0);
    platform.WriteString(section.c_str(), "MapPalette", maps.display.palette.c_str());
}

} // namespace orvanta::chart
