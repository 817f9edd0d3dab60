// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta info: what a recording holds.
#include "host/review/cli/commands.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/output.h"
#include "host/review/cli/own_montages.h"
#include "host/signal_base/events/event_duration.h"
#include "host/signal_base/recording.h"
#include "host/spectral_data/files/number_text.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <cstdio>
#include <map>

namespace orvanta::cli {

namespace {

using Json = nlohmann::ordered_json;

struct InfoArguments {
    std::string file;
    std::string json;
};

const char* TypeName(std::uint32_t type) {
    switch (type) {
    case Sensor::ScalpEeg:
        return "eeg";
    case Sensor::IntracranialEeg:
        return "ieeg";
    case Sensor::UnplacedEeg:
        return "eeg_unplaced";
    case Sensor::Eog:
        return "eog";
    case Sensor::Ecg:
        return "ecg";
    case Sensor::Emg:
        return "emg";
    case Sensor::Respiration:
        return "resp";
    case Sensor::Status:
        return "status";
    case Sensor::Annotations:
        return "annotations";
    default:
        return "misc";
    }
}

std::string StartText(const signal::RecordingData& data) {
    if (!data.start) {
        return {};
    }
    std::array<char, 96> text;
    const signal::StartTime& t = *data.start;
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d", t.year, t.month, t.day, t.hour,
                  t.minute, t.second);
    std::string start = text.data();
    if (t.microsecond != 0) {
        std::snprintf(text.data(), text.size(), ".%06d", t.microsecond);
        start += text.data();
    }
    return start;
}

Json PositionToJson(const SensorType& sensor) {
    const ElectInfo electrode = sensor.GetElectInfo();
    if (!electrode.Known) {
        return nullptr;
    }
    return {{"x", electrode.Position.x}, {"y", electrode.Position.y}, {"z", electrode.Position.z}};
}

Json GapsToJson(const signal::Timeline& timeline) {
    Json gaps = Json::array();
    const std::vector<signal::Segment>& segments = timeline.Segments();
    for (std::size_t i = 1; i < segments.size(); ++i) {
        const double begin =
            segments[i - 1].start_s + static_cast<double>(segments[i - 1].count) / timeline.Rate();
        // Records that overlap are a break of the samples, but no time is missing.
        if (segments[i].start_s > begin) {
            gaps.push_back({{"begin_s", begin}, {"end_s", segments[i].start_s}});
        }
    }
    return gaps;
}

/// Of the montages that are the user's own, or of the others.
std::vector<std::string> MontageNames(const EEGFileInfoType& recording, bool own) {
    std::vector<std::string> names;
    for (const auto& montage : *recording.GetMontageList()) {
        if ((montage->GetKind() == MontageType::Kind::User) == own) {
            names.push_back(montage->GetName());
        }
    }
    return names;
}

Json ToJson(const EEGFileInfoType& recording) {
    const signal::Recording& opened = *recording.GetRecording();
    Json json;
    json["file"] = opened.Data().path;
    json["format"] = opened.Data().format;
    json["duration_s"] = opened.Time().Duration();
    const std::string start = StartText(opened.Data());
    json["start"] = start.empty() ? Json(nullptr) : Json(start);
    json["rate_hz"] = opened.Rate() > 0 ? Json(opened.Rate()) : Json(nullptr);
    json["sensors"] = Json::array();
    for (const auto& sensor : opened.Sensors()) {
        json["sensors"].push_back({{"name", sensor->GetName()},
                                   {"label", sensor->GetRecordedLabel()},
                                   {"type", TypeName(sensor->GetType())},
                                   {"unit", sensor->GetUnit()},
                                   {"rate_hz", sensor->GetRateHz()},
                                   {"is_eeg", sensor->IsEeg()},
                                   {"position", PositionToJson(*sensor)}});
    }
    json["events"] = Json::array();
    for (const EventRecord& event : recording.GetEventsManager()->GetEvents()) {
        json["events"].push_back({{"label", event.Label},
                                  {"class", event.Class == EventClass::State ? "state" : "spot"},
                                  {"onset_s", event.Interval.GetBeginPtr()->Seconds()},
                                  {"duration_s", signal::DurationOf(event).Seconds()}});
    }
    json["gaps"] = GapsToJson(opened.Time());
    json["montages"] = MontageNames(recording, false);
    json["own_montages"] = MontageNames(recording, true);
    json["repairs"] = opened.Repairs();
    return json;
}

/// Names of one kind on as few lines as they fill, 100 columns wide.
std::string Wrapped(const std::string& head, const std::vector<std::string>& names) {
    std::string text;
    std::string line = head;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string word = " " + names[i] + (i + 1 < names.size() ? "," : "");
        if (line.size() + word.size() > 100) {
            text += line + "\n";
            line = std::string(head.size(), ' ');
        }
        line += word;
    }
    return text + line + "\n";
}

std::string ToText(const EEGFileInfoType& recording, const OwnMontages& own) {
    const signal::Recording& opened = *recording.GetRecording();
    const std::string start = StartText(opened.Data());
    std::string text = recording.GetFileNameText() + ": " + opened.Data().format + ", " +
                       DurationText(opened.Time().Duration()) + (start.empty() ? "" : ", started " + start) +
                       "\n";

    std::map<std::string, std::vector<std::string>> kinds;
    for (const auto& sensor : opened.Sensors()) {
        if (sensor->GetType() == Sensor::Annotations) {
            continue;
        }
        kinds[std::string(TypeName(sensor->GetType())) + " at " + spectral::NumberText(sensor->GetRateHz()) +
              " Hz"]
            .push_back(sensor->GetName());
    }
    for (const auto& [kind, names] : kinds) {
        text += Wrapped(Pad(std::to_string(names.size()) + " " + kind + ":", 24), names);
    }
    for (const EventClass eventClass : {EventClass::State, EventClass::Spot}) {
        EventsCountMap counts;
        recording.GetEventsManager()->GetEventsCountMap(counts, eventClass, false);
        std::vector<std::string> names;
        for (const auto& [type, count] : counts) {
            names.push_back(type.GetLabel() + " × " + std::to_string(count));
        }
        if (!names.empty()) {
            text +=
                Wrapped(Pad(eventClass == EventClass::State ? "State events:" : "Spot events:", 24), names);
        }
    }
    text += Wrapped(Pad("Montages:", 24), MontageNames(recording, false));
    if (const auto names = MontageNames(recording, true); !names.empty()) {
        text += Wrapped(Pad("Your own montages:", 24), names);
    }
    for (const std::string& problem : own.problems) {
        text += "Montage left out: " + problem + "\n";
    }
    for (const Json& gap : GapsToJson(opened.Time())) {
        text += "Gap: " + FixedText(gap["begin_s"], 3) + " s to " + FixedText(gap["end_s"], 3) + " s\n";
    }
    for (const std::string& repair : opened.Repairs()) {
        text += "Note: " + repair + "\n";
    }
    return text;
}

int Info(const InfoArguments& arguments) {
    const std::unique_ptr<EEGFileInfoType> recording = signal::OpenRecording(arguments.file);
    const OwnMontages own = LoadOwnMontages();
    own.OfferTo(*recording);
    if (!arguments.json.empty()) {
        WriteOutput(arguments.json, ToJson(*recording).dump(1) + "\n");
    }
    if (arguments.json != "-") {
        WriteOutput("-", ToText(*recording, own));
    }
    return kDone;
}

} // namespace

void AddInfo(CLI::App& app, Command& run) {
    auto arguments = std::make_shared<InfoArguments>();
    CLI::App* command = app.add_subcommand("info", "Tell what a recording holds");
    command->add_option("FILE", arguments->file, "Recording: EDF, EDF+, BDF, BDF+, BrainVision")
        ->required()
        ->type_name("");
    command->add_option("--json", arguments->json, "Write it as JSON; - for standard output")
        ->type_name("OUT");
    command->callback([&run, arguments] { run = [arguments] { return Info(*arguments); }; });
}

} // namespace orvanta::cli
