// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/bridge/maps_settings.h"

#include "host/chart_view/global_window.h"
#include "host/chart_view/maps/plot_set_store.h"
#include "spectra_contract/platform.h"

#include <algorithm>

namespace orvanta::review {

namespace {

constexpr const char* kView = "SpectMap";

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
    chart::SavePlotSet(user, kView, page.maps.front());
    // Windows that are left over show what a map shows that is drawn, so that they bring in nothing new.
    for (int i = 0; i < page.rows * page.columns; ++i) {
        const auto map = std::min(static_cast<std::size_t>(i), page.maps.size() - 1);
        chart::SavePlotSet(user, chart::SectionOfMap(kView, i), page.maps[map]);
    }
}

} // namespace orvanta::review
