// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/brainvision_files.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace orvanta::test {

namespace {

template <typename Sample>
void Append(std::string& bytes, double value) {
    const auto sample = static_cast<Sample>(value);
    char raw[sizeof sample];
    std::memcpy(raw, &sample, sizeof sample);
    bytes.append(raw, sizeof sample);
}

} // namespace

std::string HeaderText(const BrainVisionFiles& files) {
    std::string text =
        "Brain Vision Data Exchange Header File Version 1.0\n\n[Common Infos]\nCodepage=UTF-8\n"
        "DataFile=" +
        files.stem + ".eeg\nMarkerFile=" + files.stem +
        ".vmrk\nDataFormat=BINARY\nDataOrientation=" + (files.vectorized ? "VECTORIZED" : "MULTIPLEXED") +
        "\nNumberOfChannels=" + std::to_string(files.channels.size()) +
        "\nSamplingInterval=" + files.interval + "\n" + files.common_infos +
        "\n[Binary Infos]\nBinaryFormat=" + (files.float32 ? "IEEE_FLOAT_32" : "INT_16") +
        "\n\n[Channel Infos]\n";
    for (std::size_t i = 0; i < files.channels.size(); ++i) {
        text += "Ch" + std::to_string(i + 1) + "=" + files.channels[i] + "\n";
    }
    return text;
}

std::string MarkerText(const BrainVisionFiles& files) {
    std::string text =
        "Brain Vision Data Exchange Marker File, Version 1.0\n\n[Common Infos]\nCodepage=UTF-8\n"
        "DataFile=" +
        files.stem + ".eeg\n\n[Marker Infos]\n";
    for (std::size_t i = 0; i < files.markers.size(); ++i) {
        text += "Mk" + std::to_string(i + 1) + "=" + files.markers[i] + "\n";
    }
    return text;
}

std::string DataBytes(const BrainVisionFiles& files) {
    const std::size_t channels = files.values.size();
    const std::size_t frames = channels == 0 ? 0 : files.values[0].size();
    std::string bytes;
    for (std::size_t i = 0; i < channels * frames; ++i) {
        const double value = files.vectorized ? files.values[i / frames][i % frames]
                                              : files.values[i % channels][i / channels];
        if (files.float32) {
            Append<float>(bytes, value);
        } else {
            Append<std::int16_t>(bytes, value);
        }
    }
    return bytes;
}

std::string WriteBrainVision(const TempFolder& folder, const BrainVisionFiles& files) {
    folder.Write(files.stem + ".eeg", DataBytes(files));
    folder.Write(files.stem + ".vmrk", MarkerText(files));
    return folder.Write(files.stem + ".vhdr", HeaderText(files));
}

} // namespace orvanta::test
