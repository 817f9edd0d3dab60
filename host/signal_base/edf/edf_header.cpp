// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/edf/edf_header.h"

#include "host/signal_base/edf/edf_channel.h"
#include "host/signal_base/edf/edf_fields.h"
#include "host/signal_base/edf/edf_start.h"
#include "host/signal_base/recording_error.h"
#include "host/signal_base/text.h"

#include <algorithm>
#include <cmath>

namespace orvanta::signal {

namespace {

constexpr const char* kDamaged = "the header is damaged; export the recording again";
constexpr double kLongestRecord = 1e8; // seconds

std::string ReadHeaderBytes(const DataFile& file, std::size_t size) {
    std::string bytes(size, '\0');
    file.ReadAt(0, size, reinterpret_cast<std::byte*>(bytes.data()));
    return bytes;
}

SampleFormat FormatOf(const DataFile& file, std::string_view header) {
    const std::string_view version = header.substr(edf_field::kVersion.offset, edf_field::kVersion.width);
    if (version == "\xFF"
                   "BIOSEMI") {
        return SampleFormat::Int24;
    }
    if (Trim(version) == "0" && version.front() == '0') {
        return SampleFormat::Int16;
    }
    throw RecordingError(file.Path(), "byte 0: does not begin like an EDF or BDF file",
                         "choose an EDF or BDF recording");
}

std::size_t ChannelCount(const DataFile& file, EdfFields& fields) {
    const std::optional<double> count = fields.Number(edf_field::kChannels);
    if (!count || *count < 1 || *count != std::floor(*count)) {
        throw RecordingError(file.Path(),
                             PlaceOf(edf_field::kChannels) + "the number of channels is " +
                                 fields.Quoted(edf_field::kChannels),
                             kDamaged);
    }
    if ((*count + 1) * kEdfHeaderUnit > static_cast<double>(file.Size())) {
        throw RecordingError(file.Path(),
                             "byte " + std::to_string(file.Size()) + ": the header is cut, " +
                                 fields.Quoted(edf_field::kChannels) +
                                 " channels need more bytes than the file has",
                             "copy the file again");
    }
    return static_cast<std::size_t>(*count);
}

void CheckHeaderSize(EdfFields& fields, std::size_t channels) {
    const std::size_t size = (channels + 1) * kEdfHeaderUnit;
    if (fields.Number(edf_field::kHeaderBytes) != static_cast<double>(size)) {
        fields.Repaired(edf_field::kHeaderBytes, "the header size is given as " +
                                                     fields.Quoted(edf_field::kHeaderBytes) + ", " +
                                                     std::to_string(size) + " bytes used");
    }
}

void ReadFormat(EdfFields& fields, EdfHeader& header) {
    const std::string text = fields.Text(edf_field::kReserved);
    header.discontinuous = text.starts_with("EDF+D") || text.starts_with("BDF+D");
    header.plus = header.discontinuous || text.starts_with("EDF+C") || text.starts_with("BDF+C");
}

void ReadRecords(EdfFields& fields, EdfHeader& header) {
    const std::optional<double> count = fields.Number(edf_field::kRecords);
    if (count && *count >= 0 && *count == std::floor(*count) && *count < 1e15) {
        header.record_count = static_cast<std::uint64_t>(*count);
    }
    header.record_count_text = fields.Quoted(edf_field::kRecords);
    const std::optional<double> seconds = fields.Number(edf_field::kDuration);
    if (seconds && *seconds > 0 && *seconds <= kLongestRecord) {
        header.record_seconds = seconds;
    }
    header.seconds_text = fields.Quoted(edf_field::kDuration);
}

/// Samples of a channel in a data record. \throws RecordingError for what cannot be
std::uint32_t SampleCount(const DataFile& file, EdfFields& fields, const EdfField& field) {
    const std::optional<double> samples = fields.Number(field);
    if (!samples || *samples < 0 || *samples != std::floor(*samples)) {
        throw RecordingError(
            file.Path(), PlaceOf(field) + "samples per data record are " + fields.Quoted(field), kDamaged);
    }
    if (*samples > static_cast<double>(kMaxEdfRecordBytes)) {
        throw RecordingError(file.Path(),
                             PlaceOf(field) + fields.Quoted(field) +
                                 " samples make a data record larger than the 256 MiB that are possible",
                             kDamaged);
    }
    return static_cast<std::uint32_t>(*samples);
}

void ReadSignals(const DataFile& file, EdfFields& fields, std::size_t channels, EdfHeader& header) {
    for (std::size_t channel = 1; channel <= channels; ++channel) {
        const EdfField samplesField = InColumn(edf_field::kSamples, channel, channels);
        const std::uint32_t samples = SampleCount(file, fields, samplesField);
        if (samples == 0) {
            fields.Repaired(samplesField, "no samples in a data record, left out");
            continue;
        }
        EdfSignal signal = ReadEdfChannel(fields, channel, channels);
        const std::size_t width = BytesOf(header.sample_format);
        signal.layout = {header.sample_format, samples, header.record_bytes, width};
        header.record_bytes += samples * width;
        if (header.record_bytes > kMaxEdfRecordBytes) {
            throw RecordingError(file.Path(),
                                 PlaceOf(samplesField) +
                                     "a data record is larger than the 256 MiB that are possible",
                                 kDamaged);
        }
        header.signals.push_back(std::move(signal));
    }
    if (header.signals.empty()) {
        throw RecordingError(
            file.Path(), "channels 1 to " + std::to_string(channels) + ": no channel has samples", kDamaged);
    }
}

} // namespace

std::string EdfHeader::FormatName() const {
    return std::string(sample_format == SampleFormat::Int16 ? "EDF" : "BDF") + (discontinuous ? "+D"
                                                                                : plus        ? "+C"
                                                                                              : "");
}

EdfHeader ReadEdfHeader(const DataFile& file, RepairList& repairs) {
    if (file.Size() == 0) {
        throw RecordingError(file.Path(), "byte 0: the file is empty", "copy the file again");
    }
    if (file.Size() < kEdfHeaderUnit) {
        throw RecordingError(file.Path(),
                             "byte " + std::to_string(file.Size()) +
                                 ": the file is shorter than a header of " + std::to_string(kEdfHeaderUnit) +
                                 " bytes",
                             "choose an EDF or BDF recording, or copy the file again");
    }
    EdfHeader header;
    std::size_t channels = 0;
    {
        std::string fixedPart = ReadHeaderBytes(file, kEdfHeaderUnit);
        header.sample_format = FormatOf(file, fixedPart);
        EdfFields fields(std::move(fixedPart), repairs);
        channels = ChannelCount(file, fields);
    }
    header.first_byte = (channels + 1) * kEdfHeaderUnit;
    EdfFields fields(ReadHeaderBytes(file, (channels + 1) * kEdfHeaderUnit), repairs);
    ReadFormat(fields, header);
    header.patient = fields.Text(edf_field::kPatient);
    header.record = fields.Text(edf_field::kRecording);
    header.start = ReadEdfStart(fields, header.plus);
    CheckHeaderSize(fields, channels);
    ReadRecords(fields, header);
    ReadSignals(file, fields, channels, header);
    return header;
}

} // namespace orvanta::signal
