// SPDX-License-Identifier: GPL-3.0-or-later
// Frames as pictures in a folder.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace orvanta::review {

/// "frame-0001.png" and so on, counted from 1, with more digits where \p count needs them, so that the order
/// of the names is that of the frames.
std::string FrameName(std::uint64_t frame, std::uint64_t count);

/// Holds all frames in the end, or none of them.
class FrameFolder {
public:
    /// Makes the folder when it is missing. \throws cli::UsageError when it holds frames already or is no
    /// folder, std::runtime_error when nothing can be written there
    explicit FrameFolder(const std::string& folder);
    /// Takes the frames away again, and a folder that was made, unless they were kept.
    ~FrameFolder();
    FrameFolder(const FrameFolder&) = delete;
    FrameFolder& operator=(const FrameFolder&) = delete;

    /// \param frame from 1 \throws std::runtime_error
    void Write(std::uint64_t frame, std::uint64_t count, std::string_view contents);
    void Keep() { kept_ = true; }

private:
    std::filesystem::path folder_;
    bool made_ = false;
    bool kept_ = false;
    std::vector<std::filesystem::path> written_;
};

} // namespace orvanta::review
