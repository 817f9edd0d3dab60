// SPDX-License-Identifier: GPL-3.0-or-later
// Analyses of recordings at hand.
#pragma once

#include "host/spectral_data/results/analysis.h"
#include "tests/support/globals_guard.h"
#include "tests/support/small_recording.h"

namespace orvanta::test {

inline spectral::AnalysisInput InputOf(const EEGFileInfoType& recording, const SpectraMacro& macro,
                                       const MontageType& montage,
                                       const spectral::ComputeOptions& options = {}) {
    return {recording.GetRecording(), macro, montage,
            spectral::PlanEpochs(macro, *recording.GetEventsManager(), *recording.GetRecording(), 0),
            options};
}

inline spectral::ComputeOptions InDouble() {
    spectral::ComputeOptions options;
    options.precision = spectral::Precision::Double;
    return options;
}

/// A budget of no byte, so that every epoch is computed again when it is asked for.
inline spectral::ComputeOptions WithoutMemory(spectral::ComputeOptions options = {}) {
    options.memory_bytes = 0;
    return options;
}

} // namespace orvanta::test
