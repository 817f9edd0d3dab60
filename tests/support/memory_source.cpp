// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/memory_source.h"

#include "host/signal_base/recording_error.h"

#include <algorithm>
#include <cstring>

namespace orvanta::test {

namespace {

class MemorySource final : public signal::BlockSource {
public:
    explicit MemorySource(const std::vector<MadeSignal>& signals) {
        std::uint64_t blocks = 0;
        for (const MadeSignal& made : signals) {
            const auto perBlock = static_cast<std::uint32_t>(made.rate_hz);
            layouts_.push_back({signal::SampleFormat::Float32, perBlock, blockBytes_, sizeof(float)});
            blockBytes_ += perBlock * sizeof(float);
            counts_.push_back(made.values.size());
            blocks = std::max<std::uint64_t>(blocks, (made.values.size() + perBlock - 1) / perBlock);
        }
        bytes_.resize(blocks * blockBytes_);
        for (std::size_t s = 0; s < signals.size(); ++s) {
            for (std::size_t i = 0; i < signals[s].values.size(); ++i) {
                const auto value = static_cast<float>(signals[s].values[i]);
                const std::size_t at = i / layouts_[s].samples * blockBytes_ + layouts_[s].offset +
                                       i % layouts_[s].samples * sizeof(float);
                std::memcpy(bytes_.data() + at, &value, sizeof value);
            }
        }
    }

    std::size_t SignalCount() const override { return layouts_.size(); }
    const signal::SignalLayout& Layout(std::size_t signal) const override { return layouts_.at(signal); }
    std::uint64_t BlockCount() const override { return blockBytes_ == 0 ? 0 : bytes_.size() / blockBytes_; }
    std::size_t BlockBytes() const override { return blockBytes_; }
    std::uint64_t SampleCount(std::size_t signal) const override { return counts_.at(signal); }
    void Read(std::uint64_t first, std::uint64_t count, std::byte* destination) const override {
        if (first > BlockCount() || count > BlockCount() - first) {
            throw signal::RecordingError("memory", "blocks beyond the end", "ask for less");
        }
        std::copy_n(bytes_.data() + first * blockBytes_, count * blockBytes_, destination);
    }

private:
    std::vector<signal::SignalLayout> layouts_;
    std::vector<std::uint64_t> counts_;
    std::vector<std::byte> bytes_;
    std::size_t blockBytes_ = 0;
};

} // namespace

signal::RecordingData MakeData(const std::vector<MadeSignal>& signals,
                               const std::vector<signal::Annotation>& annotations,
                               const std::vector<Gap>& gaps) {
    signal::RecordingData data;
    data.path = "memory.edf";
    data.format = "EDF+C";
    data.block_seconds = 1;
    for (const MadeSignal& made : signals) {
        signal::SignalHeader header;
        header.label = made.label;
        header.unit = made.unit;
        header.rate_hz = made.rate_hz;
        data.signals.push_back(header);
    }
    data.annotations = annotations;
    data.source = std::make_shared<MemorySource>(signals);

    double start = 0;
    std::uint64_t first = 0;
    for (const Gap& gap : gaps) {
        data.segments.push_back({first, gap.block - first, start});
        start += static_cast<double>(gap.block - first) + gap.gap_s;
        first = gap.block;
    }
    if (data.source->BlockCount() > first) {
        data.segments.push_back({first, data.source->BlockCount() - first, start});
    }
    return data;
}

} // namespace orvanta::test
