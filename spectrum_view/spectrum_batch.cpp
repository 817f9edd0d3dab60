// SPDX-License-Identifier: GPL-3.0-or-later
// Spectra saved under many settings with one key.
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/saving/batch_plan.h"
#include "spectrum_view/saving/batch_run.h"
#include "spectrum_view/saving/save_folder.h"
#include "spectrum_view/saving/spectra_file_name.h"
#include "spectrum_view/spectrum.h"

#include <QScopeGuard>

using namespace orvanta::spectrum_view;

void Spectrum::SaveBatch(unsigned key) {
    if (batch_ != nullptr && !std::exchange(batch_->pressing, false)) {
        return; // pressed while files are being saved
    }
    GenericPlatform& host = *GW().GetPlatform();
    const std::string folder = PrepareSaveFolder(host);
    EventsCountMap types;
    recording_->GetEventsManager()->GetEventsCountMap(types, EventClass::State, false);
    SpectraMacro& macro = manager_->GetMain()->GetMacro();
    macro.SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
    const std::set<std::string> rejected = macro.GetRejectEventsList();
    const std::vector<BatchStep> steps = BatchSteps(key, types, rejected);
    if (batch_ != nullptr) {
        TakeSteps(steps, folder);
        return;
    }
    const std::vector<unsigned> keys = BatchKeys(key);
    if (steps.empty() && keys.empty()) {
        return;
    }

    const bool quiet = GW().IsQuiet();
    BatchProgress::MakeDisplay make;
    if (!quiet) {
        make = [&host, view = GetHandle()](const std::string& text) {
            return std::unique_ptr<GenericProgress>(host.CreateProgress(text.c_str(), MSWindow(view)));
        };
    }
    const QPointer<Spectrum> alive(this);
    std::string failures;
    {
        BatchRun run(host, std::move(make), CountBatchFiles(key, types, rejected), GetMessages(),
                     recording_->KeepSamples());
        batch_ = &run;
        const auto done = qScopeGuard([&alive] {
            if (alive) {
                alive->batch_ = nullptr;
            }
        });
        TakeSteps(steps, folder);
        for (auto pressed = keys.begin(); pressed != keys.end() && !run.IsOver(); ++pressed) {
            run.pressing = true;
            EvKeyDown(*pressed, 1, 0);
            run.pressing = false; // also when the modifiers are no longer held
        }
        if (!run.ended) {
            failures = run.failures.Text(GetMessages());
        }
    } // the progress goes before the message comes
    if (!failures.empty() && !quiet) {
        host.GetGUI()->ShowError(failures);
    }
}

void Spectrum::TakeSteps(const std::vector<BatchStep>& steps, const std::string& folder) {
    BatchRun& run = *batch_; // outlives the view
    for (auto step = steps.begin(); step != steps.end() && !run.IsOver(); ++step) {
        SpectMacroResult& main = *manager_->GetMain();
        if (step->seconds) {
            main.SetFFTSeconds(*step->seconds);
        }
        if (step->window) {
            main.SetDSPWindowStr(*step->window);
        }
        if (step->accepted) {
            main.GetMacro().SetAcceptStateList({*step->accepted});
        }
        if (step->saves) {
            SaveBatchFile(folder);
        }
    }
}

void Spectrum::SaveBatchFile(const std::string& folder) {
    BatchRun& run = *batch_;
    const QPointer<Spectrum> alive(this);
    const auto goesOn = [&] {
        run.ended = !alive || !IsCreated() || manager_->GetMain() == nullptr;
        return !run.ended;
    };
    run.NextFile(BatchFileName({}, *manager_->GetMain(), *recording_));
    if (!goesOn()) {
        return;
    }
    CmRecompute();
    if (goesOn()) {
        const SpectMacroResult& main = *manager_->GetMain();
        main.SaveSpectra(&run.platform, recording_, BatchFileName(folder, main, *recording_).c_str(),
                         nullptr);
    }
}
