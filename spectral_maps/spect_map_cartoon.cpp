// SPDX-License-Identifier: GPL-3.0-or-later
// The maps as a cartoon: one band and measure, epoch after epoch.
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spect_globals.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectral_maps/cartoon_steps.h"
#include "spectral_maps/command_ids.h"
#include "spectral_maps/map_titles.h"
#include "spectral_maps/map_values.h"
#include "spectral_maps/spect_map.h"

using namespace orvanta::spectral_maps;

void SpectMap::SetCartoonMode(bool on) {
    const QPointer<SpectMap> alive(this);
    if (on != cartoonMode_) {
        cartoonMode_ = on;
        SetSinglePalette(on);
        EnableCartoon(on);
        DropData();
    }
    std::string title, unit;
    if (const auto first = FirstPlotSet(); first && on) {
        title = WideTitle(*spectraMgr_, *first);
        unit = UnitOf(*first);
    }
    SetMeasUnit(unit);
    SetTitle(title);
    CmRecompute();
    if (alive) {
        Invalidate();
    }
}

void SpectMap::CmCartoonMode() {
    const QPointer<SpectMap> alive(this);
    SetCartoonMode(!cartoonMode_);
    if (alive) {
        CheckMenu(kCmCartoon, cartoonMode_);
    }
}

void SpectMap::UpdateSteps(const XTimeList& list) {
    const TraceCursorType& cursor = *fileInfo_->GetTraceCursor();
    const unsigned rate = cursor.GetMemDataSR();
    const auto timeText = [&](std::int64_t samples) {
        return cursor.GetTimeStrFromSmpl(Sample::Mode::Memory, rate, samples, XTime::DTMode::Time,
                                         XTime::ARMode::Elapsed);
    };
    const std::vector<CartoonStep> steps = StepsOf(list, GetNumMaps(), [&](const XTime* time) {
        return cursor.GetSample(time, Sample::Mode::Memory, 0);
    });
    const SpectMacroResult* main = spectraMgr_->GetMain();
    const SensorList sensors = Sensors();
    for (std::size_t k = 0; k < steps.size(); ++k) {
        const std::int64_t first = steps.front().start;
        const std::string title =
            k == 0 ? FirstStepTitle(timeText(first))
                   : StepTitle(timeText(steps[k].start - first), timeText(steps[k].end - first));
        std::vector<double> values;
        if (main != nullptr) {
            values = EpochValues(*main, EpochOf(k), sensors, plotSet_);
        } else if (const TMapWindow* map = GetMap(k)) {
            values = map->GetValues();
        }
        SetMap(k, title, values);
    }
    ClearMaps(steps.size());
    SetTitle(WideTitle(*spectraMgr_, plotSet_));
    SetMeasUnit(UnitOf(plotSet_));
}

SpectMap::KnownRange SpectMap::RangeWanted() const {
    const SPECT::Globals& globals = SPECT::GetGlobals();
    const SPECT::Band& band = spectraMgr_->GetBand(static_cast<unsigned>(plotSet_.SpectralBand));
    return {ShownNow(),
            plotSet_.SpectralBand,
            plotSet_.SpectralMeas,
            {band.lo, band.hi, globals.TotalLo, globals.TotalHi},
            std::nullopt};
}

std::optional<orvanta::chart::ValueRange> SpectMap::CartoonRange() {
    const SpectMacroResult* main = spectraMgr_->GetMain();
    if (main == nullptr || !main->IsComputed()) {
        return std::nullopt;
    }
    KnownRange wanted = RangeWanted();
    if (!known_ || !known_->IsFor(wanted)) {
        const QPointer<SpectMap> alive(this);
        const bool quiet = GW().IsQuiet();
        const std::unique_ptr<GenericProgress> progress(
            GW().GetPlatform()->CreateProgress("Scaling the Maps...", MSWindow(GetHandle())));
        if (!alive) {
            return std::nullopt;
        }
        if (const auto ends = main->GetCartoonRange(Sensors(), plotSet_.SpectralBand,
                                                    static_cast<SPECT::Meas::Type>(plotSet_.SpectralMeas),
                                                    quiet ? nullptr : progress.get())) {
            wanted.range = {ends->first, ends->second};
        }
        if (!alive) {
            return std::nullopt;
        }
        known_ = wanted;
    }
    return known_->range;
}
