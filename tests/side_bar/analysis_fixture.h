// SPDX-License-Identifier: GPL-3.0-or-later
// Analyses of a small recording for the panels that list them.
#pragma once

#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "tests/support/globals_guard.h"
#include "tests/support/small_recording.h"

#include <gtest/gtest.h>

#include <memory>

namespace orvanta::test {

/// Fp1, F3 and Cz at 8 Hz, 5 s.
class AnalysisFixture : public testing::Test {
protected:
    /// An analysis of 1 s windows, 9 epochs, computed at once.
    SpectMacroResult& Add(const SpectraMacro& macro = SmallMacro()) {
        auto* analysis = new SpectMacroResult(macro, recording.get(), nullptr);
        analysis->Compute(nullptr);
        manager.push_back(analysis);
        return *analysis;
    }

    GlobalsGuard guard;
    std::unique_ptr<EEGFileInfoType> recording = SmallRecording();
    SpectraMgr manager{recording.get(), nullptr};
};

} // namespace orvanta::test
