// SPDX-License-Identifier: GPL-3.0-or-later
// Any three files are a BrainVision recording or refused with an error, and every block of one that opened
// can be read. An input is the header, a NUL byte, the markers and, in its last byte, the data file's size.
#include "host/signal_base/brainvision/assemble.h"

#include "host/signal_base/recording_error.h"
#include "host/signal_base/text_encoding.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

using namespace orvanta::signal;

namespace {

constexpr std::size_t kDataUnit = 7; ///< bytes, so that sizes fit samples or not

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// The data file, in memory, of an input whose last byte is \p size. Each is opened once: opening costs more
/// than parsing.
std::shared_ptr<const DataFile> DataFileOf(std::uint8_t size) {
    static std::array<std::shared_ptr<const DataFile>, 256> files;
    if (!files[size]) {
        const int descriptor = memfd_create("data", 0);
        Require(ftruncate(descriptor, static_cast<off_t>(size * kDataUnit)) == 0);
        files[size] = std::make_shared<DataFile>("/proc/self/fd/" + std::to_string(descriptor));
        close(descriptor);
    }
    return files[size];
}

void CheckSegments(const RecordingData& data) {
    std::uint64_t next = 0;
    double end = 0;
    for (const BlockSegment& segment : data.segments) {
        Require(segment.first_block == next && segment.count > 0);
        Require(segment.start_s > end - 1e-6);
        next += segment.count;
        end = segment.start_s;
    }
    Require(next == data.source->BlockCount());
}

void Check(const RecordingData& data) {
    CheckSegments(data);
    Require(std::isfinite(data.block_seconds) && data.block_seconds > 0);
    for (const SignalHeader& signal : data.signals) {
        Require(!signal.label.empty() && IsUtf8(signal.label) && IsUtf8(signal.unit));
        Require(std::isfinite(signal.gain) && signal.gain != 0);
    }
    for (const Annotation& annotation : data.annotations) {
        Require(std::isfinite(annotation.onset_s) && annotation.onset_s >= 0);
        Require(!annotation.text.empty() && IsUtf8(annotation.text));
    }
}

void ReadEverything(const BlockSource& source) {
    // Bounded here, as by callers: a block of many channels at a high rate has a mebibyte.
    constexpr std::size_t kMost = std::size_t{1} << 16;
    if (source.BlockBytes() <= kMost) {
        std::vector<std::byte> blocks(source.BlockBytes() * source.BlockCount());
        source.Read(0, source.BlockCount(), blocks.data());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::string_view text(reinterpret_cast<const char*>(bytes), size - 1);
    const std::size_t end = text.find('\0');
    const std::string_view markers =
        end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    try {
        std::vector<std::string> repairs;
        brainvision::Header header = brainvision::ParseHeader(text.substr(0, end), "a/fuzz.vhdr", repairs);
        const auto marks = brainvision::ParseMarkers(markers, "fuzz.vmrk", repairs);
        const RecordingData data = brainvision::Assemble(std::move(header), marks, "fuzz.vmrk",
                                                         DataFileOf(bytes[size - 1]), repairs);
        Check(data);
        ReadEverything(*data.source);
    } catch (const RecordingError&) {
        return 0;
    }
    return 0;
}
