// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/starter_maps.h"

#include "host/chart_view/maps/plot_set_store.h"
#include "spectra_contract/platform.h"

namespace orvanta::review {

namespace {

constexpr const char* kView = "SpectMap";
constexpr int kBands = 4;
constexpr int kMeasures[] = {0, 2}; // Abs and Rel

bool HasMaps(const UserType& user) {
    constexpr int kNone = -1;
    const std::string first = chart::SectionOfMap(kView, 0);
    return user.GetInt(kView, "MapRows", kNone) != kNone ||
           user.GetInt(first.c_str(), "SpectralBand", kNone) != kNone;
}

} // namespace

void InstallStarterMaps(GenericPlatform& platform) {
    UserType& user = *platform.GetUser();
    if (HasMaps(user)) {
        return;
    }
    SPECT::PlotSet shown;
    shown.bZeroMin = true;
    int map = 0;
    for (const int measure : kMeasures) {
        shown.SpectralMeas = measure;
        for (int band = 0; band < kBands; ++band) {
            shown.SpectralBand = band;
            chart::SavePlotSet(user, chart::SectionOfMap(kView, map++), shown);
        }
    }
}

} // namespace orvanta::review
