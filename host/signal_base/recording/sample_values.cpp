// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/recording/sample_values.h"

#include <bit>

namespace orvanta::signal {

namespace {

std::uint32_t LittleEndian(const std::byte* bytes, std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i) {
        value |= std::to_integer<std::uint32_t>(bytes[i]) << (8 * i);
    }
    return value;
}

} // namespace

double StoredValue(SampleFormat format, const std::byte* bytes) {
    const std::uint32_t bits = LittleEndian(bytes, BytesOf(format));
    switch (format) {
    case SampleFormat::Int16:
        return static_cast<std::int16_t>(bits);
    case SampleFormat::Int24:
        // Shifted up and down again, so that the sign spreads.
        return static_cast<std::int32_t>(bits << 8) >> 8;
    case SampleFormat::Float32:
        break;
    }
    return std::bit_cast<float>(bits);
}

} // namespace orvanta::signal
