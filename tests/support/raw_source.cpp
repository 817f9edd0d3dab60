// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/raw_source.h"

#include "host/signal_base/recording_error.h"

#include <bit>
#include <cmath>
#include <cstring>

namespace orvanta::test {

RawSource::RawSource(signal::SampleFormat format, const std::vector<std::vector<double>>& stored,
                     std::uint32_t samplesPerBlock, Order order) {
    const std::size_t width = BytesOf(format);
    const std::size_t signals = stored.size();
    for (std::size_t s = 0; s < signals; ++s) {
        if (order == Order::BySignal) {
            layouts_.push_back({format, samplesPerBlock, s * samplesPerBlock * width, width});
        } else {
            layouts_.push_back({format, samplesPerBlock, s * width, signals * width});
        }
    }
    blockBytes_ = signals * samplesPerBlock * width;
    samples_ = stored.empty() ? 0 : stored[0].size();
    bytes_.resize((samples_ + samplesPerBlock - 1) / samplesPerBlock * blockBytes_);
    for (std::size_t s = 0; s < signals; ++s) {
        for (std::size_t i = 0; i < stored[s].size(); ++i) {
            const std::uint32_t bits =
                format == signal::SampleFormat::Float32
                    ? std::bit_cast<std::uint32_t>(static_cast<float>(stored[s][i]))
                    : static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lround(stored[s][i])));
            std::byte* at = bytes_.data() + i / samplesPerBlock * blockBytes_ + layouts_[s].offset +
                            i % samplesPerBlock * layouts_[s].stride;
            for (std::size_t b = 0; b < width; ++b) {
                at[b] = static_cast<std::byte>(bits >> (8 * b));
            }
        }
    }
}

void RawSource::Read(std::uint64_t first, std::uint64_t count, std::byte* destination) const {
    if (first > BlockCount() || count > BlockCount() - first) {
        throw signal::RecordingError("memory", "blocks beyond the end", "ask for less");
    }
    std::memcpy(destination, bytes_.data() + first * blockBytes_, count * blockBytes_);
}

} // namespace orvanta::test
