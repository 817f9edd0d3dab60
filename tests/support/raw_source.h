// SPDX-License-Identifier: GPL-3.0-or-later
// Stored samples in memory, laid out like a file.
#pragma once

#include "host/signal_base/block_source.h"

#include <cstdint>
#include <vector>

namespace orvanta::test {

/// Signals of one format and rate in blocks.
class RawSource : public signal::BlockSource {
public:
    enum class Order {
        BySignal, ///< a block holds the samples of one signal after those of the other
        BySample  ///< a block holds a sample of each signal, then the next of each
    };

    /// \param stored one vector of stored values per signal, of equal length; whole numbers for whole formats
    RawSource(signal::SampleFormat format, const std::vector<std::vector<double>>& stored,
              std::uint32_t samplesPerBlock, Order order = Order::BySignal);

    std::size_t SignalCount() const override { return layouts_.size(); }
    const signal::SignalLayout& Layout(std::size_t signal) const override { return layouts_.at(signal); }
    std::uint64_t BlockCount() const override { return blockBytes_ == 0 ? 0 : bytes_.size() / blockBytes_; }
    std::size_t BlockBytes() const override { return blockBytes_; }
    std::uint64_t SampleCount(std::size_t) const override { return samples_; }
    void Read(std::uint64_t first, std::uint64_t count, std::byte* destination) const override;

private:
    std::vector<signal::SignalLayout> layouts_;
    std::vector<std::byte> bytes_;
    std::size_t blockBytes_ = 0;
    std::uint64_t samples_ = 0;
};

} // namespace orvanta::test
