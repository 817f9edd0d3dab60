// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/module_entry.h"

#include "host/toolkit/wait_cursor.h"
#include "side_bar/macro_selection_form.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"

#include <memory>

namespace {

constexpr int kModeNewAnalysis = 1;
constexpr std::int32_t kFormCancelled = 0;
constexpr std::int32_t kFormCompute = 1;
constexpr std::int32_t kCancelled = -2;

} // namespace

std::int32_t CreateNewSpectrum(const GenericPlatform* platform, HWND parent, SpectraMgr& manager,
                               EEGFileInfoType* recording) {
    SensorList sensors;
    recording->GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily, Sensor::Class::Eeg);
    SpectraMacro macro;
    TFormMacroSpectra form(nullptr, parent, &macro, recording->GetEventsManager(), sensors, kModeNewAnalysis,
                           platform);
    form.ShowModal();
    const std::int32_t result = form.GetResult();
    if (result == kFormCancelled) {
        return kCancelled;
    }
    const owl::WaitCursor wait;
    if (result == kFormCompute) {
        auto analysis = std::make_unique<SpectMacroResult>(macro, recording, platform->GetGUI());
        manager.push_back(analysis.get());
        static_cast<void>(analysis.release()); // the manager's from here on
    }
    return result;
}

std::int32_t PerformComputation(const GenericPlatform* platform, HWND /*parent*/, SpectMacroResult* analysis,
                                EEGFileInfoType* recording) {
    const owl::WaitCursor wait;
    analysis->ComputeFFT(recording, platform->GetGUI());
    return 0;
}
