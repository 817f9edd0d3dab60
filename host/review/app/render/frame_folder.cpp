// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/render/frame_folder.h"

#include "host/review/cli/exit_status.h"
#include "host/review/cli/output.h"

#include <algorithm>
#include <system_error>

namespace orvanta::review {

namespace {

constexpr std::string_view kStart = "frame-";
constexpr std::size_t kDigits = 4;

void RefuseOldFrames(const std::filesystem::path& folder) {
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        const std::string name = entry.path().filename();
        if (name.starts_with(kStart) && name.ends_with(".png")) {
            throw cli::UsageError(folder.string() + ": holds frames already, such as " + name +
                                  " (remove them, or give --out another folder)");
        }
    }
}

} // namespace

std::string FrameName(std::uint64_t frame, std::uint64_t count) {
    const std::string number = std::to_string(frame);
    const std::size_t digits = std::max(kDigits, std::to_string(count).size());
    return std::string(kStart) + std::string(digits - std::min(digits, number.size()), '0') + number + ".png";
}

FrameFolder::FrameFolder(const std::string& folder) : folder_(folder) {
    std::error_code error;
    made_ = std::filesystem::create_directories(folder_, error);
    if (error || !std::filesystem::is_directory(folder_)) {
        throw cli::UsageError(folder + ": " + (error ? error.message() : "is no folder") +
                              " (give --out a folder that can be made)");
    }
    RefuseOldFrames(folder_);
    cli::CheckWritable(folder_ / FrameName(1, 1));
}

FrameFolder::~FrameFolder() {
    if (kept_) {
        return;
    }
    std::error_code none;
    for (const std::filesystem::path& file : written_) {
        std::filesystem::remove(file, none);
    }
    if (made_) {
        std::filesystem::remove(folder_, none);
    }
}

void FrameFolder::Write(std::uint64_t frame, std::uint64_t count, std::string_view contents) {
    const std::filesystem::path file = folder_ / FrameName(frame, count);
    cli::WriteOutput(file, contents);
    written_.push_back(file);
}

} // namespace orvanta::review
