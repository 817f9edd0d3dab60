// SPDX-License-Identifier: GPL-3.0-or-later
// What the view's commands do.
#include "host/toolkit/modal_gateway.h"
#include "side_bar/spectrum_macro_form.h"
#include "spectra_contract/module_entry.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectral_maps/dialogs/map_dialog.h"
#include "spectral_maps/gadget_keys.h"
#include "spectral_maps/spect_map.h"
#include "spectral_maps/spectral_map_window.h"
#include "spectrum_view/dialogs/band_dialog.h"
#include "spectrum_view/dialogs/info_dialog.h"

using namespace orvanta::spectral_maps;

LPARAM SpectMap::SetMapOptions(WPARAM mapIndex, LPARAM /*unused*/) {
    constexpr LPARAM kBehindLast = -1;
    constexpr LPARAM kNoMap = -2;
    const std::uint16_t maps = GetNumMaps();
    if (mapIndex >= maps) {
        return kBehindLast;
    }
    TSpectralMapWindow* map = SpectralMap(mapIndex);
    if (map == nullptr) {
        return kNoMap;
    }
    const QPointer<SpectMap> alive(this);
    const QPointer<TSpectralMapWindow> chosen(map);
    Spect3DDlg dialog(this, GW().GetPlatform(), spectraMgr_);
    if (cartoonMode_) {
        dialog.plotSet = plotSet_;
    } else {
        map->GetPlotSet(dialog.plotSet);
    }
    dialog.applyToAll = cartoonMode_;
    dialog.applyToAllLocked = cartoonMode_;
    if (dialog.Execute() != owl::kIdOk || !alive || !chosen) {
        return maps;
    }
    if (cartoonMode_) {
        plotSet_ = dialog.plotSet;
        for (std::size_t i = 0; i < maps; ++i) {
            if (TSpectralMapWindow* each = SpectralMap(i)) {
                each->SetPlotSet(plotSet_, false);
            }
        }
        ResetAll();
    } else {
        map->SetPlotSet(dialog.plotSet, true);
        for (std::size_t i = 0; dialog.applyToAll && i < maps; ++i) {
            TSpectralMapWindow* other = SpectralMap(i);
            if (other != nullptr && other != map) {
                SPECT::PlotSet own;
                other->GetPlotSet(own);
                SPECT::PlotSet given = dialog.plotSet;
                given.SpectralBand = own.SpectralBand;
                other->SetPlotSet(given, true);
            }
        }
    }
    if (alive) {
        SetMapValues(true);
    }
    if (alive) {
        Invalidate();
    }
    return maps;
}

void SpectMap::CmRecompute() {
    const QPointer<SpectMap> alive(this);
    if (SpectMacroResult* main = spectraMgr_->GetMain()) {
        main->ResetData();
        SetMapValues(false);
    }
    if (alive) {
        Invalidate();
    }
}

void SpectMap::CmOptions() {
    constexpr int kEdit = 2;
    const QPointer<SpectMap> alive(this);
    if (SpectMacroResult* main = spectraMgr_->GetMain()) {
        SensorList sensors;
        fileInfo_->GetTraceInfo()->GetSensorsList(sensors, Sensor::Class::Acquired);
        if (TFormSpectrumMacro(GetHandle(), "", &main->GetMacro(), fileInfo_->GetEventsManager(), sensors,
                               kEdit)
                .ShowModal() != owl::kIdOk) {
            return;
        }
    } else {
        CreateNewSpectrum(GW().GetPlatform(), GetHandle(), *spectraMgr_, fileInfo_);
    }
    if (alive) {
        SetMapValues(true);
    }
    if (alive) {
        Invalidate();
    }
}

void SpectMap::CmSetBands() {
    const QPointer<SpectMap> alive(this);
    if (SpectrumBandDlg(this, GW().GetPlatform(), spectraMgr_).Execute() != owl::kIdOk || !alive) {
        return;
    }
    CmRecompute();
    if (alive) {
        Invalidate();
    }
}

void SpectMap::CmSpectraInfo() {
    if (SpectMacroResult* main = spectraMgr_->GetMain()) {
        const QPointer<SpectMap> alive(this);
        SpectrumInfoDlg(this, main).Execute();
        if (alive) {
            SetFocus();
        }
    }
}

void SpectMap::CmSelectFont() {
    MultiMapWin::CmSelectFont();
}

void SpectMap::CmLock() {
    MultiMapWin::CmLock();
    PressToolBtn(kLockGadget, IsLocked());
}

void SpectMap::CmElectrodes() {
    MultiMapWin::CmElectrodes();
    PressToolBtn(kElectrodesGadget, AreElectrodesShown());
}

void SpectMap::CmConfigureMap() {
    const QPointer<SpectMap> alive(this);
    MultiMapWin::CmConfigureMap();
    if (alive) {
        PressToolBtn(kElectrodesGadget, AreElectrodesShown()); // one of the settings
    }
}

void SpectMap::CmNextSelection() {
    const SpectMacroResult* main = spectraMgr_->GetMain();
    if (main == nullptr) {
        return;
    }
    TraceCursorType& cursor = *fileInfo_->GetTraceCursor();
    if (const XTime* start = main->GetNextSelectionStart(cursor.GetStartRecTime())) {
        cursor.SetPosition(cursor.GetSample(start, Sample::Mode::Memory, 0));
    }
    ResetAll();
}

LPARAM SpectMap::EvTable(WPARAM picked, LPARAM unused) {
    const QPointer<SpectMap> alive(this);
    DropData();
    const LPARAM answer = MultiMapWin::EvTable(picked, unused);
    if (alive) {
        SetMapValues(true);
    }
    return answer;
}
