// SPDX-License-Identifier: GPL-3.0-or-later
// What stands behind an analysis object.
#pragma once

#include "host/spectral_data/compute_options.h"
#include "host/spectral_data/results/analysis.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spect_macro_result.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

struct SpectMacroResult::Impl {
    Impl(const SpectraMacro& settings, EEGFileInfoType* file);

    /// The recording's data, or null without a recording.
    const orvanta::signal::Recording* Data() const;
    /// Epochs that settings, events and cursor make of the recording now; none without a recording.
    orvanta::spectral::EpochPlan PlanNow() const;
    /// True when settings, file, events and bad electrodes would give what is computed.
    bool IsCurrent() const;

    // What is described and measured in bins belongs to the computed data, stale or not; before computing,
    // to the data that there would be.
    /// Rate in Hz at which EEG is analysed; 0 without EEG or recording.
    double Rate() const;
    orvanta::spectral::WindowGeometry Geometry() const;
    orvanta::spectral::EpochPlan Plan() const;
    /// The settings. Contrast and colour do not enter the spectra and are the present ones.
    SpectraMacro Settings() const;

    /// Replaces the computed data, null for none; all spectra handed out before become invalid.
    void Adopt(std::shared_ptr<const orvanta::spectral::Analysis> computed);

    SpectraMacro macro;
    EEGFileInfoType* recording; ///< that of the computed data
    unsigned number;            ///< for the name
    orvanta::spectral::ComputeOptions options;
    std::uint64_t generation = 0;

    std::shared_ptr<const orvanta::spectral::Analysis> analysis;
    std::vector<const SensorType*> computedBad; ///< electrodes that were left out
    double computedCursor = 0;                  ///< start that the by-duration mode took
    double computedTop = 0;                     ///< Hz; the highest wish that the data meet
    mutable std::uint64_t eventsGeneration = 0; ///< events known to give the computed epochs

    SensorMap sensors;
    std::vector<std::unique_ptr<SpectrumChn>> channels; ///< as Analysis::Channels; null where there is no row
    struct EpochSpectra {
        std::uint64_t epoch = 0;
        std::map<const SensorType*, SpectrumSens> sensors;
    };
    mutable EpochSpectra epochSpectra; ///< of the epoch asked for last
    mutable XTime nextSelection;
};
