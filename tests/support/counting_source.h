// SPDX-License-Identifier: GPL-3.0-or-later
// Samples that know how often they were read.
#pragma once

#include "host/signal_base/block_source.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace orvanta::test {

/// Another source's samples; counts the reads of every block.
class CountingSource final : public signal::BlockSource {
public:
    explicit CountingSource(std::shared_ptr<const signal::BlockSource> whole)
        : whole_(std::move(whole)), reads_(whole_->BlockCount()) {}

    std::size_t SignalCount() const override { return whole_->SignalCount(); }
    const signal::SignalLayout& Layout(std::size_t signal) const override { return whole_->Layout(signal); }
    std::uint64_t BlockCount() const override { return whole_->BlockCount(); }
    std::size_t BlockBytes() const override { return whole_->BlockBytes(); }
    std::uint64_t SampleCount(std::size_t signal) const override { return whole_->SampleCount(signal); }
    void Read(std::uint64_t first, std::uint64_t count, std::byte* destination) const override {
        whole_->Read(first, count, destination);
        const std::lock_guard lock(mutex_);
        for (std::uint64_t block = first; block < first + count; ++block) {
            ++reads_.at(block);
        }
    }

    const std::vector<unsigned>& Reads() const { return reads_; }
    unsigned MostReads() const { return *std::max_element(reads_.begin(), reads_.end()); }

private:
    std::shared_ptr<const signal::BlockSource> whole_;
    mutable std::mutex mutex_;
    mutable std::vector<unsigned> reads_; ///< by block
};

} // namespace orvanta::test
