// SPDX-License-Identifier: GPL-3.0-or-later
// The samples of a BrainVision data file as blocks.
#pragma once

#include "host/signal_base/block_source.h"
#include "host/signal_base/brainvision/header.h"
#include "host/signal_base/data_file.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace orvanta::signal::brainvision {

/// Which of a data file's bytes are samples.
struct FrameLayout {
    std::size_t channels = 1;
    SampleFormat format = SampleFormat::Int16;
    Orientation orientation = Orientation::Multiplexed;
    std::uint64_t frames = 0; ///< that all channels have
    std::uint64_t pitch = 0;  ///< frames from one channel to the next in a vectorized file, at least `frames`

    std::size_t FrameBytes() const { return channels * BytesOf(format); }
};

/// Where the header describes more channels than it counts, keeps those that the size of the data file, in
/// bytes, speaks for: all when they share it evenly (and as DataPoints says), else those counted.
void SettleChannels(Header& header, std::uint64_t bytes, std::vector<std::string>& repairs);

/// The layout of a data file of \p bytes bytes; a size that does not fit the header is named in \p repairs.
/// \throws RecordingError about \p path when a vectorized file is cut before its last channel
FrameLayout LayOutFrames(const Header& header, std::uint64_t bytes, const std::string& path,
                         std::vector<std::string>& repairs);

/// Reads frames by position: a multiplexed file in one piece, a vectorized one in one piece per channel.
class FrameSource final : public BlockSource {
public:
    /// \p layout lies within the file; \p blockFrames is at least 1.
    FrameSource(std::shared_ptr<const DataFile> file, const FrameLayout& layout, std::uint32_t blockFrames);

    std::size_t SignalCount() const override { return signals_.size(); }
    const SignalLayout& Layout(std::size_t signal) const override { return signals_.at(signal); }
    std::uint64_t BlockCount() const override;
    std::size_t BlockBytes() const override { return layout_.FrameBytes() * blockFrames_; }
    std::uint64_t SampleCount(std::size_t) const override { return layout_.frames; }
    void Read(std::uint64_t first, std::uint64_t count, std::byte* destination) const override;

private:
    void ReadChannels(std::uint64_t firstFrame, std::size_t frames, std::byte* destination) const;

    std::shared_ptr<const DataFile> file_;
    FrameLayout layout_;
    std::uint32_t blockFrames_;
    std::vector<SignalLayout> signals_;
};

} // namespace orvanta::signal::brainvision
