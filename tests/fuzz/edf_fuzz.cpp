// SPDX-License-Identifier: GPL-3.0-or-later
// Opens the input as an EDF or BDF file and reads its first data records.
#include "host/signal_base/recording_data.h"
#include "host/signal_base/recording_error.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using orvanta::signal::BlockSegment;
using orvanta::signal::RecordingData;
using orvanta::signal::RecordingError;

/// One memory file for all inputs; a new one each time would be most of the work.
int MemoryFile() {
    static const int descriptor = memfd_create("input", MFD_CLOEXEC);
    return descriptor;
}

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// What the rest of the program takes for granted.
void Check(const RecordingData& data) {
    Require(data.block_seconds > 0 && std::isfinite(data.block_seconds));
    Require(!data.signals.empty() && data.signals.size() == data.source->SignalCount());
    for (std::size_t i = 0; i < data.signals.size(); ++i) {
        const auto& layout = data.source->Layout(i);
        Require(data.signals[i].rate_hz > 0 && std::isfinite(data.signals[i].rate_hz));
        Require(std::isfinite(data.signals[i].gain) && std::isfinite(data.signals[i].offset));
        Require(layout.samples > 0 &&
                layout.offset + layout.samples * layout.stride <= data.source->BlockBytes());
    }
    std::uint64_t next = 0;
    double end = 0;
    for (const BlockSegment& segment : data.segments) {
        Require(segment.first_block == next && segment.count > 0 && segment.start_s >= end);
        next += segment.count;
        end = segment.start_s + static_cast<double>(segment.count) * data.block_seconds;
    }
    Require(next <= data.source->BlockCount());
    for (const auto& annotation : data.annotations) {
        Require(std::isfinite(annotation.onset_s));
        Require(!annotation.duration_s || *annotation.duration_s >= 0);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const int file = MemoryFile();
    Require(pwrite(file, bytes, size, 0) == static_cast<ssize_t>(size));
    Require(ftruncate(file, static_cast<off_t>(size)) == 0);
    try {
        static const std::string path = "/proc/self/fd/" + std::to_string(file);
        const RecordingData data = orvanta::signal::ReadEdf(path);
        Check(data);
        const std::uint64_t blocks = std::min<std::uint64_t>(data.source->BlockCount(), 4);
        std::vector<std::byte> samples(static_cast<std::size_t>(blocks) * data.source->BlockBytes());
        data.source->Read(0, blocks, samples.data());
    } catch (const RecordingError& error) {
        Require(!error.Reason().empty() && !error.Remedy().empty());
    }
    return 0;
}
