// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/macro_keys.h"

#include "host/review/cli/exit_status.h"
#include "host/signal_base/text.h"
#include "host/spectral_data/settings/macro_fields.h"
#include "host/spectral_data/settings/tapers.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace orvanta::cli {

namespace {

using Json = nlohmann::ordered_json;
using spectral::MacroField;

constexpr std::string_view kColorPrefix = "0x00";

/// Colours are kept blue first, 0x00BBGGRR; people know them as #RRGGBB. Turns either into the other's
/// digits.
std::string SwapEnds(std::string_view digits) {
    return std::string(digits.substr(4, 2)) + std::string(digits.substr(2, 2)) +
           std::string(digits.substr(0, 2));
}

std::string ColorFromUser(std::string_view text) {
    if (text.size() != 7 || text.front() != '#' ||
        text.substr(1).find_first_not_of("0123456789abcdefABCDEF") != std::string_view::npos) {
        throw std::invalid_argument("a colour such as #0000FF (#RRGGBB) is needed");
    }
    return std::string(kColorPrefix) + SwapEnds(text.substr(1));
}

std::string TaperFromUser(std::string_view text) {
    const std::vector<std::string> names = spectral::ListTapers();
    const auto found =
        std::ranges::find_if(names, [&](const std::string& name) { return signal::SameText(name, text); });
    if (found != names.end()) {
        return *found;
    }
    std::string reason = "one of";
    for (const std::string& name : names) {
        reason += (name == names.front() ? " " : ", ") + name;
    }
    throw std::invalid_argument(reason + " is needed");
}

std::set<std::string> Labels(std::string_view text) {
    std::set<std::string> labels;
    std::string label;
    const auto take = [&] { labels.insert(std::string(signal::Trim(std::exchange(label, {})))); };
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size() && text[i + 1] == ',') {
            label += text[++i];
        } else if (text[i] == ',') {
            take();
        } else {
            label += text[i];
        }
    }
    take();
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

bool IsColor(const MacroField& field) {
    return std::string_view(field.key) == "color";
}

bool IsTaper(const MacroField& field) {
    return std::string_view(field.key) == "window";
}

std::string ValueText(const MacroField& field, const SpectraMacro& macro) {
    if (field.IsList()) {
        return LabelText(field.get_list(macro));
    }
    const std::string text = field.get(macro);
    return IsColor(field) ? "#" + SwapEnds(std::string_view(text).substr(kColorPrefix.size())) : text;
}

} // namespace

void SetKey(SpectraMacro& macro, const std::string& assignment) {
    const std::size_t equals = assignment.find('=');
    const std::string_view key = std::string_view(assignment).substr(0, equals);
    const auto field =
        std::ranges::find_if(spectral::MacroFields(), [&](const auto& f) { return f.key == key; });
    if (field == spectral::MacroFields().end()) {
        throw UsageError(assignment + ": no such key (orvanta macro new --help lists them)");
    }
    if (equals == std::string::npos) {
        throw UsageError(assignment + ": the value is missing (write " + assignment + "=VALUE)");
    }
    const std::string_view value = std::string_view(assignment).substr(equals + 1);
    if (field->IsList()) {
        field->set_list(macro, Labels(value));
        return;
    }
    try {
        field->set(macro, IsColor(*field)   ? ColorFromUser(value)
                          : IsTaper(*field) ? TaperFromUser(value)
                                            : std::string(value));
    } catch (const std::invalid_argument& reason) {
        throw UsageError(assignment + ": not a value of this key (" + reason.what() + ")");
    }
}

nlohmann::ordered_json KeysToJson(const SpectraMacro& macro) {
    Json json = Json::object();
    for (const MacroField& field : spectral::MacroFields()) {
        const std::string text = ValueText(field, macro);
        if (field.IsList()) {
            json[field.key] = field.get_list(macro);
        } else {
            const Json number = IsTaper(field) ? Json() : Json::parse(text, nullptr, false);
            json[field.key] = number.is_number() ? number : Json(text);
        }
    }
    return json;
}

std::vector<std::string> KeysToText(const SpectraMacro& macro) {
    std::vector<std::string> lines;
    for (const MacroField& field : spectral::MacroFields()) {
        lines.push_back(KeyToText(macro, field.key));
    }
    return lines;
}

std::string KeyToText(const SpectraMacro& macro, std::string_view key) {
    const auto field =
        std::ranges::find_if(spectral::MacroFields(), [&](const auto& f) { return f.key == key; });
    return std::string(key) + "=" + ValueText(*field, macro);
}

} // namespace orvanta::cli
