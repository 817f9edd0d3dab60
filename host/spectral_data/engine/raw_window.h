// SPDX-License-Identifier: GPL-3.0-or-later
// A stretch of a recording's blocks in memory.
#pragma once

#include "host/signal_base/block_source.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace orvanta::spectral {

/// The blocks that are being worked on. Moves forward over the recording in one buffer; what two positions
/// share is read once.
class RawWindow {
public:
    /// At most this much is read at once (but always a whole block).
    static constexpr std::size_t kReadBytes = std::size_t{4} << 20;

    explicit RawWindow(const signal::BlockSource& source) : source_(source) {}

    /// Brings the blocks [first, last) into memory. \throws RecordingError, std::bad_alloc
    void Hold(std::uint64_t first, std::uint64_t last);
    /// A block that is held.
    const std::byte* Block(std::uint64_t block) const {
        return bytes_.get() + (block - first_) * source_.BlockBytes();
    }

private:
    const signal::BlockSource& source_;
    std::unique_ptr<std::byte[]> bytes_;
    std::size_t capacity_ = 0;
    std::uint64_t first_ = 0;
    std::uint64_t last_ = 0;
};

} // namespace orvanta::spectral
