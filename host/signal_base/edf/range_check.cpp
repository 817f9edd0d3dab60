// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/edf/range_check.h"

#include "host/signal_base/number_words.h"

#include <algorithm>
#include <cmath>

namespace orvanta::signal {

namespace {

// Opening must stay quick: this much is looked at in about a millisecond.
constexpr std::size_t kLookedAtBytes = std::size_t{4} << 20;

struct Watched {
    const EdfSignal* signal = nullptr;
    std::int32_t low = 0, high = 0;
};

/// The channels that can hold samples outside their range.
std::vector<Watched> NarrowSignals(const EdfHeader& header) {
    const double top = header.sample_format == SampleFormat::Int16 ? 32767 : 8388607;
    std::vector<Watched> narrow;
    for (const EdfSignal& signal : header.signals) {
        if (!signal.header.calibrated || signal.header.annotations) {
            continue;
        }
        const auto [low, high] = std::minmax(*signal.digital_min, *signal.digital_max);
        if (low > -top - 1 || high < top) {
            narrow.push_back({&signal,
                              static_cast<std::int32_t>(std::ceil(std::clamp(low, -top - 1, top + 1))),
                              static_cast<std::int32_t>(std::floor(std::clamp(high, -top - 2, top)))});
        }
    }
    return narrow;
}

template <SampleFormat kFormat>
std::int32_t SampleAt(const std::byte* bytes) {
    const auto low = std::to_integer<std::uint32_t>(bytes[0]) | std::to_integer<std::uint32_t>(bytes[1]) << 8;
    if constexpr (kFormat == SampleFormat::Int16) {
        return static_cast<std::int16_t>(low);
    } else {
        return static_cast<std::int32_t>((low | std::to_integer<std::uint32_t>(bytes[2]) << 16) << 8) >> 8;
    }
}

template <SampleFormat kFormat>
std::uint64_t CountOutside(const Watched& watched, const std::byte* record) {
    const SignalLayout& layout = watched.signal->layout;
    const std::byte* bytes = record + layout.offset;
    std::uint32_t outside = 0;
    for (std::uint32_t i = 0; i < layout.samples; ++i) {
        const std::int32_t sample = SampleAt<kFormat>(bytes + i * BytesOf(kFormat));
        outside += static_cast<std::uint32_t>(sample < watched.low) +
                   static_cast<std::uint32_t>(sample > watched.high);
    }
    return outside;
}

} // namespace

void CheckEdfRanges(const EdfHeader& header, const BlockSource& source, RepairList& repairs) {
    const std::vector<Watched> narrow = NarrowSignals(header);
    if (narrow.empty() || source.BlockCount() == 0) {
        return;
    }
    const std::size_t recordBytes = source.BlockBytes();
    const std::uint64_t records =
        std::clamp<std::uint64_t>(kLookedAtBytes / recordBytes, 1, source.BlockCount());
    const std::uint64_t step = std::max<std::uint64_t>(1, (std::size_t{1} << 18) / recordBytes);
    std::vector<std::byte> bytes;
    std::vector<std::uint64_t> outside(narrow.size());
    for (std::uint64_t first = 0; first < records; first += step) {
        const std::uint64_t count = std::min(step, records - first);
        bytes.resize(static_cast<std::size_t>(count) * recordBytes);
        source.Read(first, count, bytes.data());
        for (std::size_t i = 0; i < narrow.size(); ++i) {
            const auto counter = header.sample_format == SampleFormat::Int16
                                     ? CountOutside<SampleFormat::Int16>
                                     : CountOutside<SampleFormat::Int24>;
            for (std::uint64_t record = 0; record < count; ++record) {
                outside[i] += counter(narrow[i], bytes.data() + record * recordBytes);
            }
        }
    }

    std::vector<std::size_t> channels;
    std::uint64_t total = 0;
    for (std::size_t i = 0; i < narrow.size(); ++i) {
        if (outside[i] > 0) {
            channels.push_back(narrow[i].signal->channel);
            total += outside[i];
        }
    }
    if (total > 0) {
        const bool all = records == source.BlockCount();
        const std::string where =
            all ? ""
                : "in the first " + SecondsText(static_cast<double>(records) * *header.record_seconds) +
                      ", which were looked at, ";
        repairs.Add(ChannelsText(channels) + ": " + CountText(total, "sample") +
                    " outside the digital range, " + where + "kept");
    }
}

} // namespace orvanta::signal
