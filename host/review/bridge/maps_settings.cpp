// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/bridge/maps_settings.h"

#include "host/chart_view/global_window.h"
#include "spectra_contract/platform.h"

#include <algorithm>
#include <string>

namespace orvanta::review {

namespace {

constexpr const char* kView = "SpectMap";

void PutPlotSet(UserType& user, const std::string& section, const SPECT::PlotSet& map) {
    const char* name = section.c_str();
    user.PutInt(name, "SpectralBand", map.SpectralBand);
    user.PutInt(name, "SpectralMeas", map.SpectralMeas);
    user.PutInt(name, "bAutoScale", map.bAutoScale ? 1 : 0);
    user.PutInt(name, "bZeroMin", map.bZeroMin ? 1 : 0);
    user.PutDouble(name, "LoScale", map.LoScale);
    user.PutDouble(name, "HiScale", map.HiScale);
}

} // namespace

void PutMapsSettings(const GlobalWindow& window, const MapsPage& page) {
    UserType& user = *window.GetUser();
    user.PutInt(kView, "MapRows", page.rows);
    user.PutInt(kView, "MapColumns", page.columns);
    user.PutInt(kView, "MapTable", 0);
    user.PutInt(kView, "MapContours", page.contours);
    user.PutInt(kView, "MapElectrodes", page.electrodes ? 1 : 0);
    user.PutInt(kView, "MapNames", page.names ? 1 : 0);
    user.PutInt(kView, "MapValues", page.values ? 1 : 0);
    user.PutInt(kView, "MapSinglePalette", page.commonScale ? 1 : 0);
    window.GetPlatform()->WriteString(kView, "MapPalette", page.palette.c_str());
    PutPlotSet(user, kView, page.maps.front());
    // Windows that are left over show what a map shows that is drawn, so that they bring in nothing new.
    for (int i = 0; i < page.rows * page.columns; ++i) {
        const auto map = std::min(static_cast<std::size_t>(i), page.maps.size() - 1);
        PutPlotSet(user, std::string(kView) + "_Map_" + std::to_string(i), page.maps[map]);
    }
}

} // namespace orvanta::review
