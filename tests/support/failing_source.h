// SPDX-License-Identifier: GPL-3.0-or-later
// Samples that can be read until something happens.
#pragma once

#include "host/signal_base/block_source.h"

#include <functional>
#include <memory>
#include <utility>

namespace orvanta::test {

/// Another source's samples; every read runs BeforeRead first, which may throw.
class FailingSource final : public signal::BlockSource {
public:
    explicit FailingSource(std::shared_ptr<const signal::BlockSource> whole) : whole_(std::move(whole)) {}

    std::size_t SignalCount() const override { return whole_->SignalCount(); }
    const signal::SignalLayout& Layout(std::size_t signal) const override { return whole_->Layout(signal); }
    std::uint64_t BlockCount() const override { return whole_->BlockCount(); }
    std::size_t BlockBytes() const override { return whole_->BlockBytes(); }
    std::uint64_t SampleCount(std::size_t signal) const override { return whole_->SampleCount(signal); }
    void Read(std::uint64_t first, std::uint64_t count, std::byte* destination) const override {
        if (BeforeRead) {
            BeforeRead();
        }
        whole_->Read(first, count, destination);
    }

    std::function<void()> BeforeRead;

private:
    std::shared_ptr<const signal::BlockSource> whole_;
};

} // namespace orvanta::test
