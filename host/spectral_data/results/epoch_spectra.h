// SPDX-License-Identifier: GPL-3.0-or-later
// Power spectra of single epochs, kept or computed again.
#pragma once

#include "host/signal_base/recording.h"
#include "host/spectral_data/engine/engine.h"
#include "spectra_contract/api.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace orvanta::spectral {

/// Power of single epochs, µV²/Hz as 32-bit floats: from memory when all were stored, else computed again
/// from the samples, with the same bits. Not for several threads at once.
class ORVANTA_API EpochSpectra {
public:
    /// \param request as computed; store_bins is 0 or all bins  \param stored EngineResult::stored
    EpochSpectra(std::shared_ptr<const signal::Recording> recording, EngineRequest request,
                 std::uint32_t rows, std::vector<float> stored);

    bool IsStored() const { return !stored_.empty(); }
    /// Bins of one row in one epoch; valid until the next call. \throws std::out_of_range, RecordingError
    std::span<const float> Power(std::uint64_t epoch, std::uint32_t row) const;
    /// All epochs of one row in order. \throws std::out_of_range, RecordingError
    void ForEach(std::uint32_t row, const std::function<void(std::span<const float>)>& visit) const;
    /// All epochs in order, block by block: while \p visit runs, Power computes nothing for the epochs
    /// [first, last) that it is given and the rows below \p rows. Ends early when it answers false.
    /// \return whether all were visited \throws std::out_of_range, RecordingError
    bool ForEachBlock(std::uint32_t rows,
                      const std::function<bool(std::uint64_t first, std::uint64_t last)>& visit) const;

private:
    /// A block of epochs × rows computed again.
    struct Block {
        std::uint64_t firstEpoch = 0, epochs = 0;
        std::uint32_t firstRow = 0, rows = 0;
        std::vector<float> power;

        bool Holds(std::uint64_t epoch, std::uint32_t row) const {
            return epoch - firstEpoch < epochs && row - firstRow < rows;
        }
    };

    void Check(std::uint64_t epoch, std::uint32_t row) const;
    std::span<const float> InBlock(std::uint64_t epoch, std::uint32_t row) const;
    void Fill(std::uint64_t epoch, std::uint64_t epochs, std::uint32_t row, std::uint32_t rows) const;
    std::uint64_t EpochsPerRun(std::uint64_t first, std::uint32_t rows) const;

    std::shared_ptr<const signal::Recording> recording_;
    EngineRequest request_;
    std::uint32_t rows_;
    std::vector<float> stored_;
    mutable Block block_;
};

} // namespace orvanta::spectral
