// SPDX-License-Identifier: GPL-3.0-or-later
// How an analysis is computed.
#pragma once

#include "host/spectral_data/engine/engine.h"

#include <cstdint>

namespace orvanta::spectral {

/// The default serves a view: every entity, statistics, per-epoch spectra within the memory budget.
struct ComputeOptions {
    unsigned threads = 0; ///< 0: one per core
    Precision precision = Precision::Float;
    /// Budget for per-epoch spectra: where they would take more, they are computed again when asked for. Half
    /// of it bounds the sums of the worker threads: where they would take more, fewer threads work.
    std::uint64_t memory_bytes = std::uint64_t{1} << 30;
    bool amplitude = true;
    bool statistics = true; ///< log power, for p-values
    bool cross = true;      ///< cross-spectra of channels with two electrodes
    bool channels = true;   ///< spectra of the montage's channels
    bool store_epochs = true;
};

} // namespace orvanta::spectral
