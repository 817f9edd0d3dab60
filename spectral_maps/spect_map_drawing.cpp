// SPDX-License-Identifier: GPL-3.0-or-later
// How the view makes its maps and comes up.
#include "spectra_contract/module_entry.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectral_maps/map_titles.h"
#include "spectral_maps/map_values.h"
#include "spectral_maps/spect_map.h"
#include "spectral_maps/spectral_map_window.h"

#include <QScopeGuard>

using namespace orvanta::spectral_maps;

TMapWindow* SpectMap::CreateMap(int index) {
    const orvanta::chart::MapDisplay& display = GetDisplay();
    auto* map = new TSpectralMapWindow(this, GW(), GetElectrodes(), display.electrodes, IsThreeD(),
                                       GetPaletteIndex(), GetChildName().c_str(), index, display.contours);
    const SensorList sensors = Sensors();
    std::vector<double> values(sensors.size(), 0.0);
    map->EnableWindow(true);
    map->SetMissing(Missing());
    if (cartoonMode_) {
        map->SetValues(values, kNoTitle, false);
        return map;
    }
    SPECT::PlotSet plotSet;
    map->GetPlotSet(plotSet);
    if (const SpectMacroResult* main = spectraMgr_->GetMain()) {
        values = MeanValues(*main, sensors, plotSet);
    }
    map->SetValues(values, WideTitle(*spectraMgr_, plotSet), false);
    map->SetMeasureUnit(UnitOf(plotSet));
    return map;
}

void SpectMap::Draw(owl::TDC& dc, bool erase, owl::TRect& rect) {
    if (GetNumMaps() == 0) {
        return;
    }
    const QPointer<SpectMap> alive(this);
    CartoonStat::Draw(dc, erase, rect);
    if (IsFirstDraw()) {
        ShowFirstMaps();
        if (!alive || !IsCreated()) {
            return;
        }
    }
    const SpectMacroResult* main = spectraMgr_->GetMain();
    if (main != nullptr && main->GetFFTCount() != 0 && IsSinglePalette()) {
        // What the first map shows: in a cartoon that is what all of them show.
        if (const auto first = cartoonMode_ ? plotSet_ : FirstPlotSet()) {
            SetMeasUnit(UnitOf(*first));
        }
    }
}

void SpectMap::ShowFirstMaps() {
    ClearFirstDraw(); // what is drawn while the user is asked comes here no more
    const QPointer<SpectMap> alive(this);
    ShowMaps(false);
    const auto asked = qScopeGuard([&] {
        if (alive && IsCreated()) {
            ShowMaps(true);
        }
    });
    while (spectraMgr_->GetMain() == nullptr) {
        CreateNewSpectrum(GW().GetPlatform(), GetHandle(), *spectraMgr_, fileInfo_);
        if (!alive || !IsCreated()) {
            return;
        }
    }
    if (!ShowsWhatIsThere()) { // else what failed would fail once more
        UpdateMaps(EventsOfMain());
        SetMapValues(true);
    }
}
