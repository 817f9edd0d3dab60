// SPDX-License-Identifier: GPL-3.0-or-later
// A block source whose slower signals are brought to a common rate.
#pragma once

#include "host/signal_base/block_source.h"
#include "host/signal_base/recording_data.h"

#include <list>
#include <memory>
#include <mutex>
#include <vector>

namespace orvanta::signal {

/// Shows another source with some of its signals at more samples per block, as 32-bit floats in the scale of
/// the stored values (band-limited interpolation by libsoxr, very high quality). Blocks, their number and
/// all other signals stay as they are.
///
/// Signals are resampled in tiles that lie fixed in each stretch without a gap, with margins longer than the
/// filter on both sides, so that a sample's value does not depend on what was read before, nor on threads. At
/// the ends of a stretch the signal is continued by its point reflection.
class ORVANTA_API ResampledSource final : public BlockSource {
public:
    /// \param signals those to resample, ascending
    /// \param samples their new number of samples per block
    /// \throws std::length_error when a block would exceed 256 MiB
    ResampledSource(std::shared_ptr<const BlockSource> inner, std::vector<BlockSegment> segments,
                    std::vector<std::size_t> signals, std::uint32_t samples);
    ~ResampledSource() override;

    std::size_t SignalCount() const override { return layouts_.size(); }
    const SignalLayout& Layout(std::size_t signal) const override { return layouts_.at(signal); }
    std::uint64_t BlockCount() const override { return inner_->BlockCount(); }
    std::size_t BlockBytes() const override { return blockBytes_; }
    std::uint64_t SampleCount(std::size_t signal) const override;
    void Read(std::uint64_t first, std::uint64_t count, std::byte* destination) const override;

private:
    struct Tile;
    using TilePtr = std::shared_ptr<const Tile>;

    TilePtr FindTile(std::uint64_t block) const;
    TilePtr MakeTile(std::uint64_t first, std::uint64_t count, const BlockSegment& segment) const;
    bool IsResampled(std::size_t signal) const;

    std::shared_ptr<const BlockSource> inner_;
    std::vector<BlockSegment> segments_;
    std::vector<std::size_t> signals_;
    std::uint32_t samples_;
    std::vector<SignalLayout> layouts_;
    std::size_t blockBytes_ = 0;
    std::uint64_t tileBlocks_ = 1;
    std::uint64_t marginBlocks_ = 1;

    mutable std::mutex mutex_;
    mutable std::list<TilePtr> recent_; ///< most recently used first
};

} // namespace orvanta::signal
