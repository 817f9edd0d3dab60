// SPDX-License-Identifier: GPL-3.0-or-later
// Traces of analyses of a small recording.
#pragma once

#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/traces/trace_list.h"
#include "tests/support/globals_guard.h"
#include "tests/support/small_recording.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace orvanta::test {

/// Fp1, F3 and Cz at 8 Hz.
class TraceFixture : public testing::Test {
protected:
    /// Makes the montage given by its lines the current one.
    void Use(const std::string& montage) {
        recording->GetTraceInfo()->SetMtg(MontageOf(*recording, montage));
    }
    void UseFiveBipolarChannels() {
        Use("A = +Fp1 -F3\nB = +F3 -Cz\nC = +Fp1 -Cz\nD = +Cz -F3\nE = +Cz -Fp1");
    }
    SpectMacroResult* Add(bool computed = true) {
        auto* analysis = new SpectMacroResult(SmallMacro(), recording.get(), nullptr);
        if (computed) {
            analysis->Compute(nullptr);
        }
        manager.push_back(analysis);
        return analysis;
    }
    const ChnType* Channel(std::size_t index) const {
        return recording->GetTraceInfo()->GetMtg().GetChn(index);
    }
    /// Names of the main spectra; "-" for none.
    template <typename List>
    std::vector<std::string> NamesOf(const List& list) const {
        std::vector<std::string> names;
        for (const spectrum_view::TraceEntry& entry : list.Entries(manager)) {
            names.push_back(entry.main == nullptr ? "-" : entry.main->GetName());
        }
        return names;
    }

    GlobalsGuard guard;
    std::unique_ptr<EEGFileInfoType> recording = SmallRecording();
    SpectraMgr manager{recording.get(), nullptr};
};

} // namespace orvanta::test
