// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/brainvision/frame_source.h"

#include "host/signal_base/number_words.h"
#include "host/signal_base/recording_error.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace orvanta::signal::brainvision {

void SettleChannels(Header& header, std::uint64_t bytes, std::vector<std::string>& repairs) {
    const std::size_t described = header.signals.size();
    if (described <= header.channels) {
        return;
    }
    const std::uint64_t frameBytes = described * BytesOf(header.format);
    const bool fits = bytes % frameBytes == 0 && (!header.points || *header.points == bytes / frameBytes);
    repairs.push_back("NumberOfChannels is " + std::to_string(header.channels) + ", but " +
                      std::to_string(described) + " channels are described; " +
                      (fits ? "all are used, as the size of the data file fits them"
                            : "the others are left out, as the size of the data file does not fit them"));
    if (!fits) {
        header.signals.resize(header.channels);
    }
}

FrameLayout LayOutFrames(const Header& header, std::uint64_t bytes, const std::string& path,
                         std::vector<std::string>& repairs) {
    FrameLayout layout;
    layout.channels = header.signals.size();
    layout.format = header.format;
    layout.orientation = header.orientation;
    const std::uint64_t sampleBytes = BytesOf(header.format);
    const std::uint64_t samples = bytes / sampleBytes;
    layout.frames = samples / layout.channels;
    layout.pitch = layout.frames;
    std::uint64_t used = layout.frames * layout.FrameBytes();
    if (header.orientation == Orientation::Vectorized && header.points) {
        // The declared length places the channels, so that a cut file shortens only the last one.
        const std::uint64_t before = layout.channels - 1;
        if (before != 0 && *header.points >= samples / before && *header.points * before >= samples) {
            throw RecordingError(path,
                                 "ends at byte " + std::to_string(bytes) + ", before the last of " +
                                     std::to_string(layout.channels) + " channels of " +
                                     std::to_string(*header.points) + " data points",
                                 "the file was cut; copy it again");
        }
        layout.pitch = *header.points;
        layout.frames = std::min(*header.points, samples - before * *header.points);
        used = (before * layout.pitch + layout.frames) * sampleBytes;
    }
    if (used < bytes) {
        repairs.push_back(CountText(bytes - used, "byte") + " at the end of the data file" +
                          (bytes - used == 1 ? " makes" : " make") +
                          " no whole data point of all channels, left out");
    }
    if (header.points && *header.points != layout.frames) {
        repairs.push_back("DataPoints is " + std::to_string(*header.points) + ", but the data file has " +
                          std::to_string(layout.frames) + ", which are used");
    }
    return layout;
}

FrameSource::FrameSource(std::shared_ptr<const DataFile> file, const FrameLayout& layout,
                         std::uint32_t blockFrames)
    : file_(std::move(file)), layout_(layout), blockFrames_(blockFrames) {
    const std::size_t bytes = BytesOf(layout.format);
    for (std::size_t channel = 0; channel < layout.channels; ++channel) {
        if (layout.orientation == Orientation::Multiplexed) {
            signals_.push_back({layout.format, blockFrames, channel * bytes, layout.FrameBytes()});
        } else {
            signals_.push_back({layout.format, blockFrames, channel * bytes * blockFrames, bytes});
        }
    }
}

std::uint64_t FrameSource::BlockCount() const {
    return layout_.frames / blockFrames_ + (layout_.frames % blockFrames_ == 0 ? 0 : 1);
}

void FrameSource::Read(std::uint64_t first, std::uint64_t count, std::byte* destination) const {
    if (first > BlockCount() || count > BlockCount() - first) {
        throw RecordingError(file_->Path(),
                             "blocks " + std::to_string(first) + " to " + std::to_string(first + count) +
                                 " are beyond the last of " + std::to_string(BlockCount()),
                             "open the file again");
    }
    if (count == 0) {
        return;
    }
    const std::uint64_t firstFrame = first * blockFrames_;
    const auto frames = static_cast<std::size_t>(std::min(count * blockFrames_, layout_.frames - firstFrame));
    const std::size_t bytes = static_cast<std::size_t>(count) * BlockBytes();
    if (layout_.orientation == Orientation::Multiplexed) {
        const std::size_t there = frames * layout_.FrameBytes();
        file_->ReadAt(firstFrame * layout_.FrameBytes(), there, destination);
        std::memset(destination + there, 0, bytes - there);
    } else {
        const bool whole = frames == static_cast<std::size_t>(count) * blockFrames_;
        if (!whole) {
            std::memset(destination + bytes - BlockBytes(), 0, BlockBytes());
        }
        ReadChannels(firstFrame, frames, destination);
    }
}

void FrameSource::ReadChannels(std::uint64_t firstFrame, std::size_t frames, std::byte* destination) const {
    const std::size_t sampleBytes = BytesOf(layout_.format);
    std::vector<std::byte> run(frames * sampleBytes);
    for (std::size_t channel = 0; channel < layout_.channels; ++channel) {
        file_->ReadAt((channel * layout_.pitch + firstFrame) * sampleBytes, run.size(), run.data());
        std::byte* block = destination + signals_[channel].offset;
        for (std::size_t frame = 0; frame < frames; frame += blockFrames_) {
            const std::size_t length = std::min<std::size_t>(blockFrames_, frames - frame);
            std::memcpy(block, run.data() + frame * sampleBytes, length * sampleBytes);
            block += BlockBytes();
        }
    }
}

} // namespace orvanta::signal::brainvision
