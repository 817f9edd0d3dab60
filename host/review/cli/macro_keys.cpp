// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/macro_keys.h"

#include "host/review/cli/exit_status.h"
#include "host/review/cli/output.h"
#include "host/spectral_data/settings/tapers.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <functional>
#include <limits>
#include <set>
#include <span>
#include <string_view>

namespace orvanta::cli {

namespace {

using Json = nlohmann::ordered_json;

[[noreturn]] void Refuse(std::string_view key, std::string_view value, const std::string& allowed) {
    throw UsageError(std::string(key) + "=" + std::string(value) + ": not a value of this key (" + allowed +
                     ")");
}

/// A whole number in [low, high].
template <typename Number>
Number Whole(std::string_view key, std::string_view text, Number low, Number high) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < low || value > high) {
        Refuse(key, text, "a whole number from " + std::to_string(low) + " to " + std::to_string(high));
    }
    return value;
}

double Seconds(std::string_view key, std::string_view text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value) || value <= 0) {
        Refuse(key, text, "seconds, a number above 0 such as 2 or 0.5");
    }
    return value;
}

std::set<std::string> Labels(std::string_view text) {
    std::set<std::string> labels;
    std::string label;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size() && text[i + 1] == ',') {
            label += text[++i];
        } else if (text[i] == ',') {
            labels.insert(std::exchange(label, {}));
        } else {
            label += text[i];
        }
    }
    labels.insert(label);
    labels.erase("");
    return labels;
}

std::string LabelText(const std::set<std::string>& labels) {
    std::string text;
    for (const std::string& label : labels) {
        text += text.empty() ? "" : ",";
        for (const char c : label) {
            text += c == ',' ? "\\," : std::string(1, c);
        }
    }
    return text;
}

/// The position of a mode's name.
int ModeOf(std::string_view key, std::string_view text, std::span<const char* const> names) {
    const auto found = std::find(names.begin(), names.end(), text);
    if (found == names.end()) {
        std::string allowed = "one of";
        for (const char* name : names) {
            allowed += std::string(" ") + name;
        }
        Refuse(key, text, allowed);
    }
    return static_cast<int>(found - names.begin());
}

constexpr std::array<const char*, 4> kIntervalModes = {"all", "duration", "states", "spots"};
constexpr std::array<const char*, 3> kEpochModes = {"all", "first", "random"};

/// Colours are kept as 0x00BBGGRR and written as people know them, "#RRGGBB".
std::uint32_t Colour(std::string_view key, std::string_view text) {
    std::uint32_t rgb = 0;
    const std::string_view digits = text.substr(text.starts_with('#') ? 1 : 0);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), rgb, 16);
    if (digits.size() != 6 || error != std::errc() || end != digits.data() + digits.size()) {
        Refuse(key, text, "a colour as RRGGBB in hexadecimal digits, such as #0000FF");
    }
    return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
}

std::string ColourText(std::uint32_t bgr) {
    std::array<char, 16> buffer;
    std::snprintf(buffer.data(), buffer.size(), "#%02X%02X%02X", bgr & 0xFF, bgr >> 8 & 0xFF,
                  bgr >> 16 & 0xFF);
    return buffer.data();
}

std::string Taper(std::string_view key, std::string_view text) {
    const std::vector<std::string> names = spectral::ListTapers();
    const auto same = [&](const std::string& name) {
        return std::equal(
            name.begin(), name.end(), text.begin(), text.end(),
            [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); });
    };
    const auto found = std::find_if(names.begin(), names.end(), same);
    if (found == names.end()) {
        std::string allowed = "one of";
        for (const std::string& name : names) {
            allowed += " \"" + name + "\"";
        }
        Refuse(key, text, allowed);
    }
    return *found;
}

struct Key {
    const char* name;
    const char* meaning;
    std::function<void(SpectraMacro&, std::string_view name, std::string_view value)> set;
    std::function<Json(const SpectraMacro&)> get;
};

constexpr int kIntMax = std::numeric_limits<int>::max();

const std::vector<Key>& Keys() {
    using Macro = SpectraMacro;
    using Name = std::string_view;
    static const std::vector<Key> keys = {
        {"fft_seconds", "window length in seconds",
         [](Macro& m, Name k, Name v) { m.SetFFTSeconds(Seconds(k, v)); },
         [](const Macro& m) -> Json { return m.GetFFTSeconds(); }},
        {"overlap", "of successive windows, percent (0 to 99)",
         [](Macro& m, Name k, Name v) { m.SetOverlapPerc(Whole<unsigned>(k, v, 0, 99)); },
         [](const Macro& m) -> Json { return m.GetOverlapPerc(); }},
        {"window", "name of the taper", [](Macro& m, Name k, Name v) { m.SetDSPWindowStr(Taper(k, v)); },
         [](const Macro& m) -> Json { return m.GetDSPWindowStr(); }},
        {"mode", "all, duration, states or spots",
         [](Macro& m, Name k, Name v) {
             m.SetTimeIntervalSelectMode(Macro::TimeIntervalSelectMode(ModeOf(k, v, kIntervalModes)));
         },
         [](const Macro& m) -> Json {
             return kIntervalModes.at(std::size_t(m.GetTimeIntervalSelectMode()));
         }},
        {"duration", "seconds from the start, for mode duration",
         [](Macro& m, Name k, Name v) { m.SetFixedDurationSec(Whole<unsigned>(k, v, 0, kIntMax)); },
         [](const Macro& m) -> Json { return m.GetFixedDurationSec(); }},
        {"states", "state events to process, for mode states",
         [](Macro& m, Name, Name v) { m.SetAcceptStateList(Labels(v)); },
         [](const Macro& m) -> Json { return m.GetAcceptStateList(); }},
        {"spots", "spot events that start segments, for mode spots",
         [](Macro& m, Name, Name v) { m.SetAcceptSpotList(Labels(v)); },
         [](const Macro& m) -> Json { return m.GetAcceptSpotList(); }},
        {"reject", "events to leave out", [](Macro& m, Name, Name v) { m.SetRejectEventsList(Labels(v)); },
         [](const Macro& m) -> Json { return m.GetRejectEventsList(); }},
        {"pre_trigger_ms", "segment's start against its spot event",
         [](Macro& m, Name k, Name v) { m.SetPreTriggerMS(Whole<int>(k, v, -536870911, 536870911)); },
         [](const Macro& m) -> Json { return m.GetPreTriggerMS(); }},
        {"trigger_duration_ms", "segment's length",
         [](Macro& m, Name k, Name v) { m.SetTrgDurationMS(Whole<int>(k, v, -536870911, 536870911)); },
         [](const Macro& m) -> Json { return m.GetTrgDurationMS(); }},
        {"spot_steps", "segments per spot event (1 to 256)",
         [](Macro& m, Name k, Name v) { m.SpotStepCount = Whole<std::uint32_t>(k, v, 1, 256); },
         [](const Macro& m) -> Json { return m.SpotStepCount; }},
        {"spot_step_ms", "from one segment to the next (1 to 32000)",
         [](Macro& m, Name k, Name v) { m.SpotStepInc = Whole<std::uint32_t>(k, v, 1, 32000); },
         [](const Macro& m) -> Json { return m.SpotStepInc; }},
        {"epochs_mode", "all, first or random",
         [](Macro& m, Name k, Name v) {
             m.SetEpochsSelMode(Macro::EpochsSelectionMode(ModeOf(k, v, kEpochModes)));
         },
         [](const Macro& m) -> Json { return kEpochModes.at(std::size_t(m.GetEpochsSelMode())); }},
        {"epochs_count", "epochs to use, for first and random",
         [](Macro& m, Name k, Name v) { m.SetNumEpochsToUse(Whole<std::uint64_t>(k, v, 1, kIntMax)); },
         [](const Macro& m) -> Json { return m.GetNumEpochsToUse(); }},
        {"contrast", "class value for regressions",
         [](Macro& m, Name k, Name v) { m.SetContrastValue(Whole<int>(k, v, -32767, 32767)); },
         [](const Macro& m) -> Json { return m.GetContrastValue(); }},
        {"color", "of the curve, #RRGGBB", [](Macro& m, Name k, Name v) { m.Color = Colour(k, v); },
         [](const Macro& m) -> Json { return ColourText(m.Color); }},
    };
    return keys;
}

std::string ValueText(const Json& value) {
    if (value.is_array()) {
        return LabelText(value.get<std::set<std::string>>());
    }
    if (value.is_number_float()) {
        return NumberText(value.get<double>());
    }
    return value.is_string() ? value.get<std::string>() : value.dump();
}

} // namespace

void SetKey(SpectraMacro& macro, const std::string& assignment) {
    const std::size_t equals = assignment.find('=');
    const std::string_view name = std::string_view(assignment).substr(0, equals);
    const auto found =
        std::find_if(Keys().begin(), Keys().end(), [&](const Key& key) { return key.name == name; });
    if (found == Keys().end()) {
        throw UsageError(assignment + ": no such key (one of " + KeyHelp() + ")");
    }
    if (equals == std::string::npos) {
        throw UsageError(assignment + ": the value is missing (write " + assignment +
                         "=VALUE: " + found->meaning + ")");
    }
    found->set(macro, name, std::string_view(assignment).substr(equals + 1));
}

nlohmann::ordered_json KeysToJson(const SpectraMacro& macro) {
    Json json = Json::object();
    for (const Key& key : Keys()) {
        json[key.name] = key.get(macro);
    }
    return json;
}

std::vector<std::string> KeysToText(const SpectraMacro& macro) {
    std::vector<std::string> lines;
    for (const Key& key : Keys()) {
        lines.push_back(std::string(key.name) + "=" + ValueText(key.get(macro)));
    }
    return lines;
}

std::string KeyHelp() {
    std::string text;
    for (const Key& key : Keys()) {
        text += (text.empty() ? "" : ", ") + std::string(key.name);
    }
    return text;
}

} // namespace orvanta::cli
