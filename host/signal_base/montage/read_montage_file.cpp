// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/data_file.h"
#include "host/signal_base/montage/builders.h"
#include "host/signal_base/montage/montage_file.h"
#include "host/signal_base/recording.h"
#include "host/signal_base/text_encoding.h"

#include <array>
#include <charconv>
#include <cmath>

namespace orvanta::signal {

namespace {

/// Far above any montage; a larger file was chosen by mistake.
constexpr std::uint64_t kLargestFile = std::uint64_t{4} << 20;

std::vector<ChannelTerm> FindTerms(const MontageLine& line, const std::string& path,
                                   const TraceInfoType& sensors) {
    const auto refuse = [&](const std::string& reason, const char* remedy) {
        throw MontageError(path, line.line, reason, remedy);
    };
    std::vector<ChannelTerm> terms;
    for (const MontageTerm& term : line.terms) {
        const SensorType* sensor = sensors.FindSensor(term.sensor);
        if (sensor == nullptr) {
            refuse("the recording has no channel \"" + term.sensor + "\"",
                   term.sensor.find_first_of("+-") == std::string::npos
                       ? "use a channel's name as listed by the recording"
                       : "use a channel's name as listed by the recording, and blanks before the sign of the "
                         "next "
                         "one (+Fp1 -F3) or quotes around a name");
        } else if (!sensor->IsEeg()) {
            refuse("channel \"" + term.sensor + "\" is no EEG", "use EEG channels only");
        }
        for (const ChannelTerm& earlier : terms) {
            if (earlier.Sensor == sensor) {
                refuse("channel \"" + sensor->GetName() + "\" stands in it twice", "name each channel once");
            }
        }
        terms.push_back({sensor, term.weight});
    }
    return terms;
}

std::string FormatNumber(double value) {
    std::array<char, 32> text; // the shortest form of any number fits
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}

/// " -0.5*A1"
std::string FormatTerm(const ChannelTerm& term) {
    const double size = std::abs(term.Weight);
    std::string name = term.Sensor->GetName();
    if (name.find_first_of(" \t*#=") != std::string::npos) {
        name = '"' + name + '"';
    }
    return (term.Weight < 0 ? " -" : " +") + (size == 1 ? std::string() : FormatNumber(size) + '*') + name;
}

} // namespace

MontageType MakeUserMontage(const MontageText& montage, const std::string& file,
                            const TraceInfoType& sensors) {
    std::vector<std::shared_ptr<ChnType>> channels;
    for (const MontageLine& line : montage.channels) {
        channels.push_back(MakeChannel(line.label, FindTerms(line, file, sensors)));
    }
    return MakeMontage(montage.name, MontageType::Kind::User, std::move(channels));
}

std::string ReadMontageText(const std::string& path) {
    return ToUtf8(DataFile(path, "a montage file").ReadAll(kLargestFile));
}

std::vector<MontageType> ReadMontageFile(const std::string& path, const TraceInfoType& sensors) {
    std::vector<MontageType> montages;
    for (const MontageText& montage : ParseMontages(ReadMontageText(path), path)) {
        montages.push_back(MakeUserMontage(montage, path, sensors));
    }
    return montages;
}

std::string FormatMontage(const MontageType& montage) {
    std::string text;
    for (auto channel = montage.BeginChn(); channel != montage.EndChn(); ++channel) {
        text += (*channel)->GetName() + " =";
        for (const ChannelTerm& term : (*channel)->GetTerms()) {
            text += FormatTerm(term);
        }
        text += '\n';
    }
    return text;
}

} // namespace orvanta::signal
