// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/brainvision/assemble.h"
#include "host/signal_base/recording_error.h"
#include "host/signal_base/text.h"
#include "host/signal_base/text_encoding.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <system_error>

namespace orvanta::signal {

namespace {

using std::filesystem::path;

constexpr std::uint64_t kMaxTextBytes = std::uint64_t{64} << 20;
constexpr std::array<std::string_view, 1> kHeaderEndings = {".vhdr"};
constexpr std::array<std::string_view, 1> kMarkerEndings = {".vmrk"};
constexpr std::array<std::string_view, 3> kDataEndings = {".eeg", ".dat", ".avg"};

bool Exists(const path& file) {
    std::error_code ignored;
    return std::filesystem::exists(file, ignored);
}

/// A file beside \p file with the same stem and one of \p endings, in lower or upper case.
template <std::size_t Count>
std::optional<path> Sibling(path file, const std::array<std::string_view, Count>& endings) {
    for (const std::string_view ending : endings) {
        std::string upper(ending);
        std::transform(upper.begin(), upper.end(), upper.begin(),
                       [](char c) { return c == '.' ? c : static_cast<char>(c - 'a' + 'A'); });
        for (const std::string& spelling : {std::string(ending), upper}) {
            if (Exists(file.replace_extension(spelling))) {
                return file;
            }
        }
    }
    return std::nullopt;
}

/// The header of a recording that is named by any of its files.
path HeaderOf(const path& file) {
    const std::string ending = LowerCase(file.extension().string());
    const bool other = ending == ".vmrk" ||
                       std::find(kDataEndings.begin(), kDataEndings.end(), ending) != kDataEndings.end();
    if (!other || !Exists(file)) {
        return file;
    }
    const std::optional<path> header = Sibling(file, kHeaderEndings);
    if (!header) {
        throw RecordingError(file.string(), "has no header file (.vhdr) beside it",
                             "put the .vhdr file of the same name into the folder");
    }
    return *header;
}

/// The file \p name beside the header, or one that has the header's stem.
template <std::size_t Count>
std::optional<path> Find(const path& header, const std::string& name, const char* key,
                         const std::array<std::string_view, Count>& endings,
                         std::vector<std::string>& repairs) {
    if (!name.empty() && Exists(header.parent_path() / name)) {
        return header.parent_path() / name;
    }
    std::optional<path> sibling = Sibling(header, endings);
    if (sibling) {
        repairs.push_back(std::string(key) +
                          (name.empty() ? " is missing" : " " + Quoted(name) + " does not exist") + ", " +
                          Quoted(sibling->filename().string()) + " used instead");
    }
    return sibling;
}

/// The markers; a file that cannot be had is a repair, since the samples are there without it.
std::vector<brainvision::Marker> ReadMarkers(const std::optional<path>& file, const std::string& name,
                                             std::vector<std::string>& repairs) {
    if (!file) {
        if (!name.empty()) {
            repairs.push_back("MarkerFile " + Quoted(name) + " does not exist, opened without markers");
        }
        return {};
    }
    try {
        return brainvision::ParseMarkers(DataFile(file->string(), "a marker file").ReadAll(kMaxTextBytes),
                                         file->filename().string(), repairs);
    } catch (const RecordingError& error) {
        repairs.push_back(file->filename().string() + ": " + error.Reason() + ", opened without markers");
        return {};
    }
}

} // namespace

RecordingData ReadBrainVision(const std::string& file) {
    const path headerPath = HeaderOf(file);
    std::vector<std::string> repairs;
    brainvision::Header header = brainvision::ParseHeader(
        DataFile(headerPath.string()).ReadAll(kMaxTextBytes), headerPath.string(), repairs);
    const std::optional<path> data = Find(headerPath, header.data_name, "DataFile", kDataEndings, repairs);
    if (!data) {
        throw RecordingError(headerPath.string(), "data file " + Quoted(header.data_name) + " does not exist",
                             "put the data file into the header's folder");
    }
    auto dataFile = std::make_shared<const DataFile>(data->string());
    const std::optional<path> markerFile =
        Find(headerPath, header.marker_name, "MarkerFile", kMarkerEndings, repairs);
    const auto markers = ReadMarkers(markerFile, header.marker_name, repairs);
    const std::string markerName = markerFile ? markerFile->filename().string() : "markers";
    RecordingData recording = brainvision::Assemble(std::move(header), markers, markerName,
                                                    std::move(dataFile), std::move(repairs));
    recording.path = headerPath.string();
    recording.files = {headerPath.string(), data->string()};
    if (markerFile) {
        recording.files.push_back(markerFile->string());
    }
    return recording;
}

} // namespace orvanta::signal
