// SPDX-License-Identifier: GPL-3.0-or-later
// One thread's share of a computation.
#pragma once

#include "host/spectral_data/engine/accumulators.h"
#include "host/spectral_data/engine/lane_reader.h"
#include "host/spectral_data/engine/raw_window.h"
#include "host/spectral_data/engine/setup.h"

#include <atomic>

namespace orvanta::spectral {

/// What the workers tell the waiting thread, and it them.
struct WorkState {
    std::atomic<std::uint64_t> epochsDone = 0;
    std::atomic<bool> stop = false;
};

/// Works on runs of epochs with buffers of its own: reads, converts, transforms and gathers, batch by batch
/// and inside a batch group by group, so that a group's samples, powers and sums are near while they are
/// used.
template <class T>
class ChunkWorker {
public:
    /// \param stored where every epoch's powers go (see EngineResult::stored); empty when none are kept
    ChunkWorker(const Setup<T>& setup, std::span<float> stored);

    /// Gathers the epochs [first, last) from nothing. Ends early when \p state says stop. \throws
    /// RecordingError
    void Run(std::size_t first, std::size_t last, WorkState& state);
    const Accumulators& Gathered() const { return gathered_; }

private:
    void AddGroup(const Batch& batch, std::size_t group);
    void AddDerived(const Batch& batch, std::size_t node);
    void AddPowers(std::size_t at, std::size_t count, std::size_t stride, const Batch& batch);
    void KeepSpectra(std::size_t epoch, std::size_t group);
    void StoreGroup(const Batch& batch, std::size_t group);
    void StoreRow(std::size_t row, std::size_t epoch, const T* powers);
    T* Spectrum(std::size_t epoch, std::size_t slot) {
        return spectra_.data() + (epoch * setup_.slots + slot) * 2 * setup_.pitch;
    }

    const Setup<T>& setup_;
    std::span<float> stored_;
    Accumulators gathered_;
    RawWindow raw_;
    LaneReader<T> reader_;
    std::vector<LaneStart> starts_;
    AlignedArray<T> mean_;
    AlignedArray<T> work_;
    AlignedArray<T> powers_;   ///< of a group or a derived row: batch × its values
    AlignedArray<T> bands_;    ///< the same for the bands
    AlignedArray<T> spectrum_; ///< of a group, one epoch
    AlignedArray<T> spectra_;  ///< batch × slots × 2 × pitch
    AlignedArray<T> turned_;   ///< a group's rows as sequences
};

extern template class ChunkWorker<float>;
extern template class ChunkWorker<double>;

} // namespace orvanta::spectral
