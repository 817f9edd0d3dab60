// SPDX-License-Identifier: GPL-3.0-or-later
// How the view's modes change, and how its spectra are brought up to date.
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/command_ids.h"
#include "spectrum_view/saving/batch_run.h"
#include "spectrum_view/spectrum.h"
#include "spectrum_view/state/montage_choice.h"

using namespace orvanta::spectrum_view;

const DisplaySettings& Spectrum::GetDisplay() {
    return Display();
}

void Spectrum::GetEventList(XTimeList& list) const {
    list.clear();
    if (const SpectMacroResult* main = manager_->GetMain()) {
        main->GetEventList(recording_, list, GW().GetPlatform()->GetGUI());
    }
}

int Spectrum::ChangeDataMode(SPECT::Data::Mode mode) {
    const SPECT::Data::Mode earlier = Display().mode;
    if (mode == earlier) {
        return 0;
    }
    Display().mode = mode;
    UpdateStatusBar();
    state_.firstTrace = 0;
    SetViewCoords();
    Invalidate();
    return static_cast<int>(earlier);
}

int Spectrum::ChangeViewMode(Layout::Mode mode) {
    const Layout::Mode earlier = state_.layout;
    if (mode == earlier) {
        return 0;
    }
    state_.layout = mode;
    const QPointer<Spectrum> alive(this);
    AdjustSpectraOptions();
    if (!alive) {
        return static_cast<int>(earlier);
    }
    UpdateStatusBar();
    state_.firstTrace = 0;
    if (mode == Layout::Mode::Scalp) {
        SetCephalicList();
    } else {
        SetViewCoords();
    }
    Invalidate();
    return static_cast<int>(earlier);
}

void Spectrum::AdjustSpectraOptions() {
    const Adjustment change =
        AdjustmentOf(state_.layout, manager_->GetMeasEntity(), Display().mode, *recording_);
    if (!change.IsNeeded()) {
        return;
    }
    if (change.montage != nullptr) {
        recording_->GetTraceInfo()->SetMtg(*change.montage);
    }
    if (change.toMean) {
        Display().mode = SPECT::Data::Mode::Mean;
    }
    state_.firstTrace = 0;
    CmRecompute();
}

void Spectrum::CheckAndRecompute(bool quiet) {
    const SpectMacroResult* main = manager_->GetMain();
    if (main == nullptr) {
        return;
    }
    XTimeList events;
    GetEventList(events);
    SPECT::FrequencyRange& range = Display().range;
    range = SPECT::ClampFrequencyRange(range.bottom, range.top, LoadedRate());
    const MontageType& montage = recording_->GetTraceInfo()->GetMtg();
    // The view may go while the progress is shown; these outlive it.
    const QPointer<Spectrum> alive(this);
    SpectraMgr& manager = *manager_;
    EEGFileInfoType* const recording = recording_;
    BatchRun* const batch = batch_;
    if (main->IsRecomputingNeeded(montage, events, range.top)) {
        // A batch has one display for all of its files.
        const bool own = !quiet && batch == nullptr;
        try {
            const std::unique_ptr<GenericProgress> progress(
                own ? GW().GetPlatform()->CreateProgress("Computing Spectra...", MSWindow(GetHandle()))
                    : nullptr);
            manager.ReComputeFFT(recording, range.top, events,
                                 batch != nullptr ? batch->progress.Computation() : progress.get());
        } catch (const std::exception& failure) {
            qInfo("%s", failure.what()); // the view shows what there is
            if (alive && batch != nullptr && !main->IsComputed()) {
                batch->failures.NotComputed(failure.what());
            }
        }
    }
    if (alive) {
        SetFocus();
    }
}

void Spectrum::CmRecompute() {
    if (SpectMacroResult* main = manager_->GetMain()) {
        main->ResetData();
    }
    const QPointer<Spectrum> alive(this);
    CheckAndRecompute(GW().IsQuiet());
    if (alive) {
        Invalidate();
    }
}

void Spectrum::CmSetCommon() {
    state_.commonScale = !state_.commonScale;
    CheckMenu(kCmSetCommon, state_.commonScale);
    Invalidate();
}

void Spectrum::CmSetEntity(unsigned id) {
    const unsigned index = id - kCmSetEntity;
    const auto entity = static_cast<SPECT::Entity::Type>(index);
    if (index >= manager_->GetMeasEntityCount() || entity == manager_->GetMeasEntity()) {
        return;
    }
    manager_->SetMeasEntity(entity);
    const QPointer<Spectrum> alive(this);
    AdjustSpectraOptions();
    if (!alive) {
        return;
    }
    if (entity == SPECT::Entity::Type::Coherence || entity == SPECT::Entity::Type::Phase) {
        ChangeDataMode(SPECT::Data::Mode::Mean);
        CmSetCommon();
    }
    CheckEntityItems();
    UpdateStatusBar();
    Invalidate();
}

void Spectrum::CheckEntityItems() {
    for (unsigned i = 0; i < manager_->GetMeasEntityCount(); ++i) {
        CheckMenu(kCmSetEntity + i, static_cast<SPECT::Entity::Type>(i) == manager_->GetMeasEntity());
    }
}

void Spectrum::Toggle(bool DisplaySettings::*flag) {
    bool& shown = Display().*flag;
    shown = !shown;
    Invalidate();
}
