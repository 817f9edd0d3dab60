// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/brainvision/number_check.h"

#include "host/signal_base/limited_list.h"
#include "host/signal_base/number_words.h"
#include "host/signal_base/text_encoding.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace orvanta::signal::brainvision {

namespace {

// Opening must stay quick: this much is looked at in some hundredths of a second.
constexpr std::size_t kLookedAtBytes = std::size_t{64} << 20;
constexpr std::size_t kReadBytes = std::size_t{1} << 20;

/// NaN and the infinities are the floats with all bits of the exponent set.
bool IsNoNumber(const std::byte* sample) {
    constexpr std::uint32_t kExponent = 0x7F800000;
    std::uint32_t bits = 0;
    std::memcpy(&bits, sample, sizeof(bits));
    return (bits & kExponent) == kExponent;
}

bool HasNoNumber(const std::vector<std::byte>& bytes) {
    unsigned any = 0;
    for (std::size_t at = 0; at + sizeof(float) <= bytes.size(); at += sizeof(float)) {
        any |= static_cast<unsigned>(IsNoNumber(bytes.data() + at));
    }
    return any != 0;
}

std::uint64_t CountInBlock(const SignalLayout& layout, const std::byte* block) {
    std::uint64_t count = 0;
    for (std::uint32_t i = 0; i < layout.samples; ++i) {
        count += static_cast<std::uint64_t>(IsNoNumber(block + layout.offset + i * layout.stride));
    }
    return count;
}

} // namespace

void CheckNumbers(const std::vector<SignalHeader>& signals, const BlockSource& source,
                  std::vector<std::string>& repairs) {
    if (source.SignalCount() == 0 || source.Layout(0).format != SampleFormat::Float32 ||
        source.BlockCount() == 0) {
        return;
    }
    const std::size_t blockBytes = source.BlockBytes();
    const std::uint64_t blocks =
        std::clamp<std::uint64_t>(kLookedAtBytes / blockBytes, 1, source.BlockCount());
    const std::uint64_t step = std::max<std::uint64_t>(1, kReadBytes / blockBytes);
    std::vector<std::uint64_t> counts(source.SignalCount());
    std::vector<std::byte> bytes;
    for (std::uint64_t first = 0; first < blocks; first += step) {
        const std::uint64_t count = std::min(step, blocks - first);
        bytes.resize(static_cast<std::size_t>(count) * blockBytes);
        source.Read(first, count, bytes.data());
        if (!HasNoNumber(bytes)) {
            continue;
        }
        for (std::size_t signal = 0; signal < counts.size(); ++signal) {
            for (std::uint64_t block = 0; block < count; ++block) {
                counts[signal] += CountInBlock(source.Layout(signal), bytes.data() + block * blockBytes);
            }
        }
    }

    LimitedList list(repairs, "");
    const std::string where =
        blocks == source.BlockCount() ? "" : " in the first 64 MiB, which were looked at";
    for (std::size_t signal = 0; signal < counts.size(); ++signal) {
        if (counts[signal] > 0) {
            list.Add(CountText(counts[signal], "sample") + " of channel " + Quoted(signals[signal].label) +
                     (counts[signal] == 1 ? " is no number" : " are not numbers") + where +
                     ", spectra over them are not computable");
        }
    }
}

} // namespace orvanta::signal::brainvision
