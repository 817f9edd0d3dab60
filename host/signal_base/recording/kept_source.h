// SPDX-License-Identifier: GPL-3.0-or-later
// A block source whose samples can be kept in memory for a while.
#pragma once

#include "host/signal_base/block_source.h"

#include <memory>
#include <mutex>

namespace orvanta::signal {

/// Another source's blocks. While they are to be kept, a block that was read once comes from memory; blocks
/// beyond the limit, and those that could not be kept, are read each time.
class ORVANTA_API KeptSource final : public BlockSource {
public:
    explicit KeptSource(std::shared_ptr<const BlockSource> inner);
    ~KeptSource() override;

    std::size_t SignalCount() const override { return inner_->SignalCount(); }
    const SignalLayout& Layout(std::size_t signal) const override { return inner_->Layout(signal); }
    std::uint64_t BlockCount() const override { return inner_->BlockCount(); }
    std::size_t BlockBytes() const override { return inner_->BlockBytes(); }
    std::uint64_t SampleCount(std::size_t signal) const override { return inner_->SampleCount(signal); }
    void Read(std::uint64_t first, std::uint64_t count, std::byte* destination) const override;

    /// Keeps what is read for as long as the answer or another one given meanwhile lives; then all of it
    /// goes. \param limit bytes of samples, at most; that of the first who asked holds for all
    std::shared_ptr<const void> Keep(std::uint64_t limit) const;

private:
    class Pages;

    std::shared_ptr<const BlockSource> inner_;
    mutable std::mutex mutex_;
    mutable std::weak_ptr<Pages> pages_;
};

} // namespace orvanta::signal
