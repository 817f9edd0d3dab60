// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/settings/macro_fields.h"

#include "host/signal_base/text.h"
#include "host/spectral_data/files/number_text.h"
#include "host/spectral_data/settings/macro_limits.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <stdexcept>

namespace orvanta::spectral {

namespace {

using Mode = SpectraMacro::TimeIntervalSelectMode;
using EpochsMode = SpectraMacro::EpochsSelectionMode;

constexpr std::array<const char*, 4> kModes = {"all", "duration", "states", "spots"};
constexpr std::array<const char*, 3> kEpochsModes = {"all", "first", "random"};

std::int64_t Whole(std::string_view text, std::int64_t low, std::int64_t high) {
    const std::optional<std::int64_t> value = signal::ParseWhole(text);
    if (!value || *value < low || *value > high) {
        throw std::invalid_argument("a whole number from " + std::to_string(low) + " to " +
                                    std::to_string(high) + " is needed");
    }
    return *value;
}

std::int64_t Whole32(std::string_view text) {
    return Whole(text, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
}

template <std::size_t N>
int Choice(std::string_view text, const std::array<const char*, N>& names) {
    const auto found = std::find_if(names.begin(), names.end(), [&](const char* name) {
        return signal::SameText(signal::Trim(text), name);
    });
    if (found != names.end()) {
        return static_cast<int>(found - names.begin());
    }
    std::string reason = "one of";
    for (const char* name : names) {
        reason += std::string(name == names.front() ? " " : ", ") + name;
    }
    throw std::invalid_argument(reason + " is needed");
}

std::string GetSeconds(const SpectraMacro& macro) {
    return NumberText(macro.GetFFTSeconds());
}
void SetSeconds(SpectraMacro& macro, std::string_view text) {
    const std::optional<double> value = signal::ParseNumber(text);
    if (!value || !(*value > 0) || *value > kMaxFFTSeconds) {
        throw std::invalid_argument("a number above 0 and at most " + NumberText(kMaxFFTSeconds) +
                                    " is needed");
    }
    macro.SetFFTSeconds(*value);
}

std::string GetOverlap(const SpectraMacro& macro) {
    return std::to_string(macro.GetOverlapPerc());
}
void SetOverlap(SpectraMacro& macro, std::string_view text) {
    macro.SetOverlapPerc(static_cast<unsigned>(Whole(text, 0, kMaxOverlapPerc)));
}

std::string GetWindow(const SpectraMacro& macro) {
    return macro.GetDSPWindowStr();
}
void SetWindow(SpectraMacro& macro, std::string_view text) {
    const std::string_view name = signal::Trim(text);
    if (name.empty()) {
        throw std::invalid_argument("the name of a window function is needed");
    }
    macro.SetDSPWindowStr(std::string(name));
}

std::string GetMode(const SpectraMacro& macro) {
    return kModes.at(static_cast<std::size_t>(macro.GetTimeIntervalSelectMode()));
}
void SetMode(SpectraMacro& macro, std::string_view text) {
    macro.SetTimeIntervalSelectMode(static_cast<Mode>(Choice(text, kModes)));
}

std::string GetDuration(const SpectraMacro& macro) {
    return std::to_string(macro.GetFixedDurationSec());
}
void SetDuration(SpectraMacro& macro, std::string_view text) {
    macro.SetFixedDurationSec(static_cast<unsigned>(Whole(text, 0, std::numeric_limits<unsigned>::max())));
}

std::string GetPreTrigger(const SpectraMacro& macro) {
    return std::to_string(macro.GetPreTriggerMS());
}
void SetPreTrigger(SpectraMacro& macro, std::string_view text) {
    macro.SetPreTriggerMS(static_cast<int>(Whole32(text)));
}

std::string GetTriggerDuration(const SpectraMacro& macro) {
    return std::to_string(macro.GetTrgDurationMS());
}
void SetTriggerDuration(SpectraMacro& macro, std::string_view text) {
    macro.SetTrgDurationMS(static_cast<int>(Whole32(text)));
}

std::string GetSpotSteps(const SpectraMacro& macro) {
    return std::to_string(std::clamp(macro.SpotStepCount, 1u, kMaxSpotSteps));
}
void SetSpotSteps(SpectraMacro& macro, std::string_view text) {
    macro.SpotStepCount = static_cast<std::uint32_t>(Whole(text, 1, kMaxSpotSteps));
}

std::string GetSpotStepMS(const SpectraMacro& macro) {
    return std::to_string(std::clamp(macro.SpotStepInc, 1u, kMaxSpotStepMS));
}
void SetSpotStepMS(SpectraMacro& macro, std::string_view text) {
    macro.SpotStepInc = static_cast<std::uint32_t>(Whole(text, 1, kMaxSpotStepMS));
}

std::string GetEpochsMode(const SpectraMacro& macro) {
    return kEpochsModes.at(static_cast<std::size_t>(macro.GetEpochsSelMode()));
}
void SetEpochsMode(SpectraMacro& macro, std::string_view text) {
    macro.SetEpochsSelMode(static_cast<EpochsMode>(Choice(text, kEpochsModes)));
}

std::string GetEpochsCount(const SpectraMacro& macro) {
    return std::to_string(macro.GetNumEpochsToUse());
}
void SetEpochsCount(SpectraMacro& macro, std::string_view text) {
    macro.SetNumEpochsToUse(
        static_cast<std::uint64_t>(Whole(text, 1, static_cast<std::int64_t>(kMaxEpochs))));
}

std::string GetContrast(const SpectraMacro& macro) {
    return std::to_string(macro.GetContrastValue());
}
void SetContrast(SpectraMacro& macro, std::string_view text) {
    macro.SetContrastValue(static_cast<int>(Whole32(text)));
}

std::string GetColor(const SpectraMacro& macro) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text = "0x00";
    for (int shift = 20; shift >= 0; shift -= 4) {
        text += kDigits[macro.Color >> shift & 0xFu];
    }
    return text;
}
void SetColor(SpectraMacro& macro, std::string_view text) {
    text = signal::Trim(text);
    const bool hex = text.starts_with("0x") || text.starts_with("0X");
    if (hex) {
        text.remove_prefix(2);
    }
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, hex ? 16 : 10);
    if (error != std::errc{} || end != text.data() + text.size() || value > kMaxColor) {
        throw std::invalid_argument("a colour from 0x00000000 to 0x00FFFFFF (0x00BBGGRR) is needed");
    }
    macro.Color = value;
}

constexpr MacroField Scalar(const char* key, std::string (*get)(const SpectraMacro&),
                            void (*set)(SpectraMacro&, std::string_view)) {
    return {key, get, set, nullptr, nullptr};
}

using Labels = std::set<std::string>;

const std::array<MacroField, 16> kFields = {{
    Scalar("fft_seconds", GetSeconds, SetSeconds),
    Scalar("overlap", GetOverlap, SetOverlap),
    Scalar("window", GetWindow, SetWindow),
    Scalar("mode", GetMode, SetMode),
    Scalar("duration", GetDuration, SetDuration),
    {"states", nullptr, nullptr, [](const SpectraMacro& macro) { return macro.GetAcceptStateList(); },
     [](SpectraMacro& macro, const Labels& labels) { macro.SetAcceptStateList(labels); }},
    {"spots", nullptr, nullptr, [](const SpectraMacro& macro) { return macro.GetAcceptSpotList(); },
     [](SpectraMacro& macro, const Labels& labels) { macro.SetAcceptSpotList(labels); }},
    {"reject", nullptr, nullptr, [](const SpectraMacro& macro) { return macro.GetRejectEventsList(); },
     [](SpectraMacro& macro, const Labels& labels) { macro.SetRejectEventsList(labels); }},
    Scalar("pre_trigger_ms", GetPreTrigger, SetPreTrigger),
    Scalar("trigger_duration_ms", GetTriggerDuration, SetTriggerDuration),
    Scalar("spot_steps", GetSpotSteps, SetSpotSteps),
    Scalar("spot_step_ms", GetSpotStepMS, SetSpotStepMS),
    Scalar("epochs_mode", GetEpochsMode, SetEpochsMode),
    Scalar("epochs_count", GetEpochsCount, SetEpochsCount),
    Scalar("contrast", GetContrast, SetContrast),
    Scalar("color", GetColor, SetColor),
}};

} // namespace

std::span<const MacroField> MacroFields() {
    return kFields;
}

} // namespace orvanta::spectral
