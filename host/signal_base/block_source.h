// SPDX-License-Identifier: GPL-3.0-or-later
// Raw samples of a recording, read block by block.
#pragma once

#include "spectra_contract/api.h"

#include <cstddef>
#include <cstdint>

namespace orvanta::signal {

/// How one sample is stored; all little endian.
enum class SampleFormat { Int16, Int24, Float32 };

constexpr std::size_t BytesOf(SampleFormat format) {
    return format == SampleFormat::Int16 ? 2 : format == SampleFormat::Int24 ? 3 : 4;
}

/// Where a signal's samples lie inside a block.
struct SignalLayout {
    SampleFormat format = SampleFormat::Int16;
    std::uint32_t samples = 0; ///< per block, at least 1
    std::size_t offset = 0;    ///< bytes from the block's start to the first sample
    std::size_t stride = 0;    ///< bytes from one sample to the next
};

/// The stored samples of a recording as equal blocks (an EDF data record, a run of BrainVision frames).
/// Sample s of a signal is sample s % samples of block s / samples; blocks follow each other without regard
/// to gaps in time. All operations may be called from several threads at once.
class ORVANTA_API BlockSource {
public:
    virtual ~BlockSource();

    virtual std::size_t SignalCount() const = 0;
    virtual const SignalLayout& Layout(std::size_t signal) const = 0;
    virtual std::uint64_t BlockCount() const = 0;
    virtual std::size_t BlockBytes() const = 0;
    /// Stored samples of a signal; may end inside the last block, whose rest reads as zero bytes.
    virtual std::uint64_t SampleCount(std::size_t signal) const = 0;
    /// Reads \p count blocks from block \p first into \p destination (count × BlockBytes() bytes).
    /// \throws RecordingError when the blocks do not exist, or the file was changed, cut or cannot be read
    virtual void Read(std::uint64_t first, std::uint64_t count, std::byte* destination) const = 0;
};

} // namespace orvanta::signal
