// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/recording/file_format.h"

#include "host/signal_base/text.h"

#include <array>
#include <filesystem>
#include <utility>

namespace orvanta::signal {

namespace {

constexpr std::array<std::pair<std::string_view, FileFormat>, 7> kExtensions{
    {{".edf", FileFormat::Edf},
     {".edf+", FileFormat::Edf},
     {".rec", FileFormat::Edf},
     {".bdf", FileFormat::Edf},
     {".vhdr", FileFormat::BrainVision},
     {".vmrk", FileFormat::BrainVision},
     {".eeg", FileFormat::BrainVision}}};

/// The first line of header and marker files, in all versions of the format.
bool IsBrainVisionText(std::string_view head) {
    const std::string line = LowerCase(TakeLine(head));
    return (line.find("brain vision") != std::string::npos ||
            line.find("brainvision") != std::string::npos) &&
           line.find("data exchange") != std::string::npos;
}

} // namespace

FileFormat FormatOf(std::string_view head, const std::string& path) {
    if (head.starts_with("0       ") || head.starts_with("\xFF"
                                                         "BIOSEMI")) {
        return FileFormat::Edf;
    }
    if (IsBrainVisionText(head)) {
        return FileFormat::BrainVision;
    }
    const std::string extension = LowerCase(std::filesystem::path(path).extension().string());
    for (const auto& [known, format] : kExtensions) {
        if (extension == known) {
            return format;
        }
    }
    return FileFormat::Unknown;
}

} // namespace orvanta::signal
