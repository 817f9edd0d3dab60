// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/channels_tsv/channel_marks.h"
#include "host/signal_base/data_file.h"
#include "host/signal_base/number_words.h"
#include "host/signal_base/recording.h"
#include "host/signal_base/recording/file_format.h"
#include "host/signal_base/recording_error.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace orvanta::signal {

namespace {

RecordingData ReadFile(const std::string& path) {
    std::string head;
    {
        const DataFile file(path);
        head.resize(std::min<std::uint64_t>(file.Size(), kFormatBytes));
        file.ReadAt(0, head.size(), reinterpret_cast<std::byte*>(head.data()));
    }
    switch (FormatOf(head, path)) {
    case FileFormat::Edf:
        return ReadEdf(path);
    case FileFormat::BrainVision:
        return ReadBrainVision(path);
    case FileFormat::Unknown:
        break;
    }
    throw RecordingError(path, head.empty() ? "the file is empty" : "it is no recording of a known format",
                         "open an EDF, EDF+, BDF, BDF+ or BrainVision file, or export to one of these");
}

/// The events table beside a recording: the one that is there, else the one to be written.
std::filesystem::path EventsTableOf(const std::string& path) {
    const std::filesystem::path recording(path);
    const std::string stem = recording.stem().string();
    constexpr std::string_view kBids = "_eeg";
    constexpr const char* kTable = "_events.tsv";
    std::vector<std::string> names{stem + ".events.tsv", stem + kTable};
    const std::string bids =
        stem.ends_with(kBids) ? stem.substr(0, stem.size() - kBids.size()) + kTable : stem + kTable;
    if (bids != names.back()) {
        names.insert(names.begin(), bids);
    }
    for (const std::string& name : names) {
        std::filesystem::path table = recording.parent_path() / name;
        std::error_code unreadable;
        if (std::filesystem::exists(table, unreadable)) {
            return table;
        }
    }
    return recording.parent_path() / bids;
}

double EndOf(const RecordingData& data) {
    return data.segments.empty() ? 0
                                 : data.segments.back().start_s +
                                       static_cast<double>(data.segments.back().count) * data.block_seconds;
}

/// Tells of the table's events, those from \p first on, that begin before the recording or after its end.
void ReportOutside(const std::string& table, std::size_t first, RecordingData& data) {
    constexpr double kTimeRounding = 1e-6;
    const double end = EndOf(data) + kTimeRounding;
    std::vector<double> outside;
    for (std::size_t i = first; i < data.annotations.size(); ++i) {
        const double onset = data.annotations[i].onset_s;
        if (onset < -kTimeRounding || onset > end) {
            outside.push_back(onset);
        }
    }
    if (!outside.empty()) {
        data.repairs.push_back(std::filesystem::path(table).filename().string() + ": " +
                               CountText(outside.size(), "event") + " outside the recording, the first at " +
                               SecondsText(outside.front()) + ", kept");
    }
}

} // namespace

std::unique_ptr<EEGFileInfoType> OpenRecording(const std::string& path) {
    RecordingData data = ReadFile(path);
    const std::filesystem::path table = EventsTableOf(path);
    data.events_table.path = table.string();
    std::error_code unreadable;
    if (std::filesystem::exists(table, unreadable)) {
        try {
            data.files.push_back(table.string());
            const std::size_t before = data.annotations.size();
            data.events_table.text = ReadEventsTsv(table.string(), data.annotations, data.repairs);
            ReportOutside(table.string(), before, data);
        } catch (const RecordingError& error) {
            data.repairs.push_back(std::string("events table left out: ") + error.what());
        }
    }
    const std::vector<ChannelMark> marks = ReadChannelMarks(path, data.repairs);
    std::unique_ptr<EEGFileInfoType> recording = MakeRecording(std::move(data));
    if (!marks.empty()) {
        MarkChannels(*recording, marks);
        recording->SetAverageElectrodes({}); // of all that are good
    }
    return recording;
}

} // namespace orvanta::signal
