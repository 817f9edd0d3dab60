// SPDX-License-Identifier: GPL-3.0-or-later
// A recording of any length that takes no memory.
#pragma once

#include "host/signal_base/recording_data.h"

#include <algorithm>
#include <memory>

namespace orvanta::test {

/// One signal of zeros, a second a block.
class SilentSource final : public signal::BlockSource {
public:
    SilentSource(std::uint32_t rate, std::uint64_t seconds)
        : layout_{signal::SampleFormat::Int16, rate, 0, 2}, seconds_(seconds) {}

    std::size_t SignalCount() const override { return 1; }
    const signal::SignalLayout& Layout(std::size_t) const override { return layout_; }
    std::uint64_t BlockCount() const override { return seconds_; }
    std::size_t BlockBytes() const override { return std::size_t{2} * layout_.samples; }
    std::uint64_t SampleCount(std::size_t) const override { return seconds_ * layout_.samples; }
    void Read(std::uint64_t, std::uint64_t count, std::byte* destination) const override {
        std::fill_n(destination, count * BlockBytes(), std::byte{0});
    }

private:
    signal::SignalLayout layout_;
    std::uint64_t seconds_;
};

/// Electrode Cz, at \p offset µV all the time.
inline signal::RecordingData SilentData(std::uint32_t rate, std::uint64_t seconds, double offset = 0) {
    signal::SignalHeader header;
    header.label = "Cz";
    header.unit = "uV";
    header.rate_hz = rate;
    header.offset = offset;
    signal::RecordingData data;
    data.path = "silent.edf";
    data.format = "EDF";
    data.block_seconds = 1;
    data.signals = {header};
    data.segments = {{0, seconds, 0}};
    data.source = std::make_shared<SilentSource>(rate, seconds);
    return data;
}

} // namespace orvanta::test
