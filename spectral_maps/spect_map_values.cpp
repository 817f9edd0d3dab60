// SPDX-License-Identifier: GPL-3.0-or-later
// The numbers on the maps and their scales.
#include "host/toolkit/form_texts.h"
#include "host/toolkit/wait_cursor.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectral_maps/map_scale.h"
#include "spectral_maps/map_titles.h"
#include "spectral_maps/map_values.h"
#include "spectral_maps/spect_map.h"
#include "spectral_maps/spectral_map_window.h"

#include <QScopeGuard>

#include <utility>

using namespace orvanta::spectral_maps;

SensorList SpectMap::Sensors() const {
    SensorList sensors;
    fileInfo_->GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily, Sensor::Class::Eeg);
    return sensors;
}

XTimeList SpectMap::EventsOfMain() const {
    XTimeList events;
    if (const SpectMacroResult* main = spectraMgr_->GetMain()) {
        main->GetEventList(fileInfo_, events, GW().GetPlatform()->GetGUI());
    }
    return events;
}

void SpectMap::GetEventList(XTimeList& /*list*/) {}

int SpectMap::ComputeAllMapsValues() {
    constexpr int kNothingToCompute = -100;
    XTimeList events;
    GetEventList(events);
    if (events.empty()) {
        return kNothingToCompute;
    }
    const QPointer<SpectMap> alive(this);
    if (BringUpToDate(events) && alive) {
        UpdateMaps(events);
    }
    return 0;
}

double SpectMap::HighestFrequency() const {
    return static_cast<double>(fileInfo_->GetTraceCursor()->GetMemDataSR() >> 1U);
}

bool SpectMap::IsMainStale(const XTimeList& events) const {
    const SpectMacroResult* main = spectraMgr_->GetMain();
    return main == nullptr ||
           main->IsRecomputingNeeded(fileInfo_->GetTraceCursor()->GetMtg(), events, HighestFrequency());
}

bool SpectMap::BringUpToDate(const XTimeList& events) {
    const double top = HighestFrequency();
    if (!spectraMgr_->IsRecomputingNeeded(fileInfo_->GetTraceCursor()->GetMtg(), events, top)) {
        return true;
    }
    // The view may go while the progress comes up, and while it is shown.
    const QPointer<SpectMap> alive(this);
    const bool quiet = GW().IsQuiet();
    const std::unique_ptr<GenericProgress> progress(
        GW().GetPlatform()->CreateProgress("Computing Spectra...", MSWindow(GetHandle())));
    if (!alive) {
        return false;
    }
    const owl::WaitCursor wait;
    return spectraMgr_->ReComputeFFT(fileInfo_, top, events, quiet ? nullptr : progress.get());
}

std::optional<XTimeList> SpectMap::Fetch() {
    XTimeList events = EventsOfMain();
    if (spectraMgr_->GetMain() == nullptr) {
        return events;
    }
    const QPointer<SpectMap> alive(this);
    try {
        if (!BringUpToDate(events)) {
            return std::nullopt;
        }
    } catch (const std::exception&) {
        if (!alive || IsMainStale(events)) {
            throw;
        }
        othersFailure_ = std::current_exception(); // told once the maps show theirs
    }
    return events;
}

void SpectMap::SetMapValues(bool fetch) {
    const QPointer<SpectMap> alive(this);
    shown_ = ShownNow(); // also when it fails: it is not tried again with every focus
    const auto told = qScopeGuard([&] {
        if (alive) {
            TellMissing();
        }
    });
    CartoonStat::SetMapValues(fetch);
    if (alive) {
        shown_ = ShownNow();
        if (othersFailure_) {
            std::rethrow_exception(std::exchange(othersFailure_, nullptr));
        }
    }
}

std::string SpectMap::Missing() const {
    const SpectMacroResult* main = spectraMgr_->GetMain();
    return main == nullptr || main->IsComputed()
               ? std::string()
               : owl::TextOr(GetMessages(), "Maps", "NotComputed", "Not computed. Choose Recompute.");
}

void SpectMap::TellMissing() const {
    for (std::size_t k = 0; k < GetNumMaps(); ++k) {
        if (TMapWindow* map = GetMap(k)) {
            map->SetMissing(Missing());
        }
    }
}

SpectMap::Shown SpectMap::ShownNow() const {
    const SpectMacroResult* main = spectraMgr_->GetMain();
    return {main != nullptr ? main->GetGeneration() : 0, spectraMgr_->GetMeasEntity()};
}

void SpectMap::Follow() {
    if (IsCreated() && !IsFirstDraw() && !ShowsWhatIsThere()) {
        SetMapValues(true);
    }
}

TSpectralMapWindow* SpectMap::SpectralMap(std::size_t index) const {
    return dynamic_cast<TSpectralMapWindow*>(GetMap(index));
}

std::optional<SPECT::PlotSet> SpectMap::FirstPlotSet() const {
    const TSpectralMapWindow* first = SpectralMap(0);
    if (first == nullptr) {
        return std::nullopt;
    }
    SPECT::PlotSet plotSet;
    first->GetPlotSet(plotSet);
    return plotSet;
}

std::string SpectMap::UnitOf(const SPECT::PlotSet& plotSet) const {
    return spectraMgr_->GetBandMeasUnit(static_cast<SPECT::Meas::Type>(plotSet.SpectralMeas));
}

void SpectMap::UpdateMaps(const XTimeList& list) {
    DrawStatusBar();
    if (cartoonMode_) {
        UpdateSteps(list);
    } else {
        for (std::size_t k = 0; k < GetNumMaps(); ++k) {
            if (const TSpectralMapWindow* map = SpectralMap(k)) {
                UpdateMap(k, *map);
            }
        }
    }
    SetRange();
}

void SpectMap::UpdateMap(std::size_t index, const TSpectralMapWindow& map) {
    SPECT::PlotSet plotSet;
    map.GetPlotSet(plotSet);
    const SpectMacroResult* main = spectraMgr_->GetMain();
    const std::string title = MapTitle(*spectraMgr_, plotSet, GetLayoutCount());
    if (main == nullptr) {
        SetMap(index, title, map.GetValues());
        return;
    }
    SetMap(index, title, MeanValues(*main, Sensors(), plotSet));
    SetMapUnit(index, UnitOf(plotSet));
}

void SpectMap::ClearMaps(std::size_t from) {
    const std::vector<double> zeros(Sensors().size(), 0.0);
    for (std::size_t k = from; k < GetNumMaps(); ++k) {
        SetMap(k, kNoTitle, zeros);
        SetMapUnit(k, kNoUnit);
    }
}

bool SpectMap::SetRange() {
    const orvanta::chart::ValueRange overall =
        GetOverallRange().value_or(orvanta::chart::ValueRange{}); // of a cartoon that of all steps
    for (std::uint16_t i = 0; i < GetNumMaps(); ++i) {
        TMapWindow* map = GetMap(i);
        if (map == nullptr) {
            continue;
        }
        MapScale scale = kForeignScale;
        if (cartoonMode_) {
            scale = CartoonScale(plotSet_, overall);
        } else if (const TSpectralMapWindow* own = SpectralMap(i)) {
            SPECT::PlotSet plotSet;
            own->GetPlotSet(plotSet);
            scale = OwnScale(plotSet, overall);
        }
        map->SetRange(scale.low, scale.high, scale.automatic, false);
    }
    return true;
}

void SpectMap::DropData() {
    if (SpectMacroResult* main = spectraMgr_->GetMain()) {
        main->ResetData();
    }
}

void SpectMap::ResetAll() {
    const QPointer<SpectMap> alive(this);
    DropData();
    XTimeList events;
    GetEventList(events);
    SetMapValues(true);
    if (alive) {
        Invalidate();
    }
}

void SpectMap::ResetWindows(std::uint16_t rows, std::uint16_t columns) {
    DropData();
    CartoonStat::ResetWindows(rows, columns);
}

void SpectMap::GetClipboardFirstRaw(std::string& row) {
    row = "Item";
    for (const SensorType* sensor : Sensors()) {
        row += "\t" + sensor->GetName();
    }
    row += "\r\n";
}
