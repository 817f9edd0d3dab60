// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/recording_reader.h"

#include <cstddef>

namespace orvanta::test {

std::vector<std::int32_t> StoredValues(const signal::RecordingData& data, std::size_t signal) {
    const signal::BlockSource& source = *data.source;
    const signal::SignalLayout& layout = source.Layout(signal);
    std::vector<std::byte> block(source.BlockBytes());
    std::vector<std::int32_t> values;
    for (std::uint64_t b = 0; b < source.BlockCount(); ++b) {
        source.Read(b, 1, block.data());
        for (std::size_t i = 0; i < layout.samples; ++i) {
            const std::byte* at = block.data() + layout.offset + i * layout.stride;
            std::int64_t value = 0;
            std::int64_t weight = 1;
            for (std::size_t byte = 0; byte < BytesOf(layout.format); ++byte, weight *= 256) {
                value += std::to_integer<int>(at[byte]) * weight;
            }
            values.push_back(static_cast<std::int32_t>(value < weight / 2 ? value : value - weight));
        }
    }
    return values;
}

} // namespace orvanta::test
