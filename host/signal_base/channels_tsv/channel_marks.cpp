// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/channels_tsv/channel_marks.h"

#include "host/platform/atomic_file.h"
#include "host/signal_base/data_file.h"
#include "host/signal_base/limited_list.h"
#include "host/signal_base/recording.h"
#include "host/signal_base/recording_error.h"
#include "host/signal_base/text.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace orvanta::signal {

namespace {

constexpr std::uint64_t kMostBytes = std::uint64_t{16} << 20;

/// Empty when there is no such table.
std::string TextOf(const std::string& table) {
    std::error_code unreadable;
    return std::filesystem::exists(table, unreadable)
               ? DataFile(table, "a channels table").ReadAll(kMostBytes)
               : std::string();
}

/// As BIDS names it.
std::string TypeOf(const SensorType& sensor) {
    if (sensor.GetType() == Sensor::IntracranialEeg) {
        return "SEEG";
    }
    if (sensor.IsEeg()) {
        return "EEG";
    }
    switch (sensor.GetType()) {
    case Sensor::Eog:
        return "EOG";
    case Sensor::Ecg:
        return "ECG";
    case Sensor::Emg:
        return "EMG";
    case Sensor::Respiration:
        return "RESP";
    default:
        return "MISC";
    }
}

/// The sensor of a name as recorded, else of a short name; null for none.
SensorType* Named(const Recording& recording, const std::string& name) {
    const auto find = [&](const auto& nameOf) -> SensorType* {
        for (const auto& sensor : recording.Sensors()) {
            if (sensor->IsSignal() && SameText(nameOf(*sensor), name)) {
                return sensor.get();
            }
        }
        return nullptr;
    };
    SensorType* recorded = find([](const SensorType& sensor) { return sensor.GetRecordedLabel(); });
    return recorded != nullptr ? recorded : find([](const SensorType& sensor) { return sensor.GetName(); });
}

} // namespace

std::string ChannelsTableOf(const std::string& recording) {
    if (recording.empty()) {
        return {};
    }
    const std::filesystem::path path(recording);
    std::string stem = path.stem().string();
    constexpr std::string_view kBids = "_eeg";
    if (stem.ends_with(kBids)) {
        stem.resize(stem.size() - kBids.size());
    }
    return (path.parent_path() / (stem + "_channels.tsv")).string();
}

std::vector<ChannelMark> ReadChannelMarks(const std::string& recording, std::vector<std::string>& repairs) {
    const std::string table = ChannelsTableOf(recording);
    std::vector<ChannelMark> marks;
    try {
        const std::string text = table.empty() ? std::string() : TextOf(table);
        if (!text.empty()) {
            marks = ParseChannelsTable(text, table, repairs);
        }
    } catch (const std::runtime_error& error) {
        repairs.push_back(std::string("channels table left out: ") + error.what());
    }
    std::vector<std::string> bad;
    for (const ChannelMark& mark : marks) {
        if (mark.bad) {
            bad.push_back(mark.name);
        }
    }
    if (!bad.empty()) {
        repairs.push_back(std::filesystem::path(table).filename().string() +
                          ": bad and not analysed: " + NameList(bad));
    }
    return marks;
}

void MarkChannels(EEGFileInfoType& recording, std::span<const ChannelMark> marks) {
    for (const ChannelMark& mark : marks) {
        if (SensorType* sensor = Named(*recording.GetRecording(), mark.name)) {
            sensor->SetBad(mark.bad);
        }
    }
}

ChannelMarks MarksOf(const EEGFileInfoType& recording) {
    ChannelMarks marks;
    for (const auto& sensor : recording.GetRecording()->Sensors()) {
        if (sensor->IsSignal()) {
            marks[sensor->GetRecordedLabel()] = sensor->IsBad();
        }
    }
    return marks;
}

void SaveChannelMarks(const EEGFileInfoType& recording, const ChannelMarks& before) {
    const RecordingData& data = recording.GetRecording()->Data();
    const std::string table = ChannelsTableOf(data.path);
    if (table.empty()) {
        throw std::runtime_error(
            "marks of bad channels: the recording has no file, and they have no place beside "
            "it (save the recording first)");
    }
    std::vector<ChannelRow> rows;
    for (const auto& sensor : recording.GetRecording()->Sensors()) {
        if (!sensor->IsSignal()) {
            continue;
        }
        const auto known = before.find(sensor->GetRecordedLabel());
        const bool changed = known == before.end() ? sensor->IsBad() : known->second != sensor->IsBad();
        rows.push_back({sensor->GetRecordedLabel(), sensor->GetName(), TypeOf(*sensor),
                        data.signals[sensor->GetSignalIndex()].unit, sensor->IsBad(), changed});
    }
    if (std::none_of(rows.begin(), rows.end(), [](const ChannelRow& row) { return row.changed; })) {
        return;
    }
    platform::WriteFileAtomically(table, WriteChannelsTable(TextOf(table), table, rows));
}

} // namespace orvanta::signal
