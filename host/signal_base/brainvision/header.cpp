// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/brainvision/header.h"

#include "host/signal_base/brainvision/channels.h"
#include "host/signal_base/brainvision/ini_text.h"
#include "host/signal_base/recording_error.h"
#include "host/signal_base/text.h"
#include "host/signal_base/text_encoding.h"

#include <algorithm>
#include <filesystem>

namespace orvanta::signal::brainvision {

namespace {

constexpr std::string_view kCommon = "commoninfos";
constexpr std::string_view kBinary = "binaryinfos";
constexpr const char* kUnsupported = "is not supported";
constexpr std::int64_t kMaxChannels = 4096;
constexpr double kMinInterval = 0.01; ///< µs: 100 MHz
constexpr double kMaxInterval = 1e9;  ///< µs: one sample in 1000 s

/// Reads the keys of one header.
class Keys {
public:
    Keys(const std::vector<IniEntry>& entries, const std::string& path, std::vector<std::string>& repairs)
        : entries_(entries), path_(path), repairs_(repairs) {}

    std::string_view Value(std::string_view section, std::string_view key) const {
        const IniEntry* entry = FindEntry(entries_, section, key);
        return entry == nullptr ? std::string_view() : entry->value;
    }

    /// Refuses the value of a key, or that it has none: "line 3: DataFormat "ASCII" is not supported".
    [[noreturn]] void RefuseValue(std::string_view section, const std::string& key,
                                  const std::string& verdict, const std::string& remedy) const {
        const IniEntry* entry = FindEntry(entries_, section, LowerCase(key));
        if (entry == nullptr || entry->value.empty()) {
            Refuse(key + " is missing", remedy);
        }
        Refuse("line " + std::to_string(entry->line) + ": " + key + " " + Quoted(entry->value) + " " +
                   verdict,
               remedy);
    }

    [[noreturn]] void Refuse(const std::string& reason, const std::string& remedy) const {
        throw RecordingError(path_, reason, remedy);
    }

    void CheckKind() const {
        const std::string_view format = Value(kCommon, "dataformat");
        if (!format.empty() && Folded(format) != "binary") {
            RefuseValue(kCommon, "DataFormat", kUnsupported, "export the recording as binary data");
        }
        const std::string_view domain = Value(kCommon, "datatype");
        if (!domain.empty() && Folded(domain) != "timedomain") {
            RefuseValue(kCommon, "DataType", kUnsupported, "export the recording in the time domain");
        }
        if (Folded(Value(kBinary, "usebigendianorder")) == "yes") {
            RefuseValue(kBinary, "UseBigEndianOrder", kUnsupported,
                        "export the recording in little-endian order");
        }
    }

    std::size_t ChannelCount() const {
        const std::string_view text = Value(kCommon, "numberofchannels");
        const std::optional<std::int64_t> count = ParseWhole(text);
        if (!count || *count < 1 || *count > kMaxChannels) {
            RefuseValue(kCommon, "NumberOfChannels", "is no number of channels",
                        "it must be a whole number from 1 to " + std::to_string(kMaxChannels) +
                            "; correct the header");
        }
        return static_cast<std::size_t>(*count);
    }

    double Rate() const {
        const std::string_view text = Value(kCommon, "samplinginterval");
        const std::optional<RepairedNumber> interval = ParseNumberOrComma(text);
        if (!interval || interval->value < kMinInterval || interval->value > kMaxInterval) {
            RefuseValue(kCommon, "SamplingInterval", "is no sampling interval",
                        "it must be the microseconds from one sample to the next; correct the header");
        }
        if (interval->comma) {
            repairs_.push_back("decimal comma in SamplingInterval " + Quoted(text) + " read as a point");
        }
        return 1e6 / interval->value;
    }

    brainvision::Orientation Orientation() const {
        const std::string_view text = Value(kCommon, "dataorientation");
        const std::string folded = Folded(text);
        if (folded.empty()) {
            repairs_.push_back("DataOrientation is missing, data taken as multiplexed");
        } else if (folded == "vectorized") {
            return Orientation::Vectorized;
        } else if (folded != "multiplexed") {
            RefuseValue(kCommon, "DataOrientation", kUnsupported, "it must be MULTIPLEXED or VECTORIZED");
        }
        return Orientation::Multiplexed;
    }

    SampleFormat Format() const {
        const std::string_view text = Value(kBinary, "binaryformat");
        const std::string folded = Folded(text);
        if (folded == "int_16") {
            return SampleFormat::Int16;
        }
        if (folded == "ieee_float_32") {
            return SampleFormat::Float32;
        }
        RefuseValue(kBinary, "BinaryFormat", kUnsupported, "export the recording as INT_16 or IEEE_FLOAT_32");
    }

    std::optional<std::uint64_t> Points() const {
        const std::string_view text = Value(kCommon, "datapoints");
        const std::optional<std::int64_t> points = ParseWhole(text);
        if (points && *points > 0) {
            return static_cast<std::uint64_t>(*points);
        }
        if (!text.empty()) {
            repairs_.push_back("DataPoints is " + Quoted(text) +
                               ", counted from the data file's size instead");
        }
        return std::nullopt;
    }

    /// A file name; folders are left out, the file must lie beside the header.
    std::string FileName(std::string_view key, const char* keyAsWritten) const {
        std::string name(Value(kCommon, key));
        const std::size_t folder = name.find_last_of("/\\");
        if (folder != std::string::npos) {
            name.erase(0, folder + 1);
            repairs_.push_back(std::string(keyAsWritten) + " names a folder, looked for " + Quoted(name) +
                               " beside the header instead");
        }
        const std::string stem = std::filesystem::path(path_).stem().string();
        for (std::size_t at = name.find("$b"); at != std::string::npos; at = name.find("$b", at)) {
            name.replace(at, 2, stem);
            at += stem.size();
        }
        return name == "." || name == ".." ? std::string() : name;
    }

private:
    const std::vector<IniEntry>& entries_;
    const std::string& path_;
    std::vector<std::string>& repairs_;
};

} // namespace

bool IsHeader(std::string_view text) {
    const std::string line = Folded(ToUtf8(TakeLine(text)));
    return line.find("vision") != std::string::npos && line.find("headerfile") != std::string::npos;
}

Header ParseHeader(std::string_view text, const std::string& path, std::vector<std::string>& repairs) {
    if (Trim(text).empty()) {
        throw RecordingError(path, "is empty", "choose a recording file");
    }
    if (!IsHeader(text)) {
        throw RecordingError(path, "line 1: is no BrainVision header", "choose a .vhdr file");
    }
    bool recoded = false;
    const std::string utf8 = ToUtf8(text, &recoded);
    const std::vector<IniEntry> entries = ParseIni(utf8);
    const Keys keys(entries, path, repairs);
    if (recoded && Folded(keys.Value(kCommon, "codepage")) == "utf-8") {
        repairs.emplace_back("the header is not UTF-8 although it says so");
    }
    keys.CheckKind();
    Header header;
    header.channels = keys.ChannelCount();
    header.rate_hz = keys.Rate();
    header.orientation = keys.Orientation();
    header.format = keys.Format();
    header.points = keys.Points();
    header.data_name = keys.FileName("datafile", "DataFile");
    header.marker_name = keys.FileName("markerfile", "MarkerFile");
    constexpr auto kMost = static_cast<std::size_t>(kMaxChannels);
    header.signals = ReadChannels(entries, std::clamp(CountDescribed(entries), header.channels, kMost),
                                  header.rate_hz, repairs);
    return header;
}

} // namespace orvanta::signal::brainvision
