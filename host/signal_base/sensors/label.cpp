// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/sensors/label.h"

#include "host/signal_base/sensors/label_words.h"
#include "host/signal_base/sensors/positions.h"
#include "host/signal_base/text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <vector>

namespace orvanta::signal {

namespace {

/// Electrodes with a name of their own that no standard places.
constexpr std::array<std::string_view, 8> kUnplaced{"T1", "T2", "Sp1", "Sp2", "Cb1", "Cb2", "Pg1", "Pg2"};
/// Words for a reference that say nothing about where it was.
constexpr std::array<std::string_view, 4> kPlainReferences{"ref", "reference", "com", "common"};

struct Prefix {
    std::string_view word;
    std::optional<Sensor::Type> type;
};
const std::array<Prefix, 6> kPrefixes{{{"eeg", Sensor::UnplacedEeg},
                                       {"pol", std::nullopt},
                                       {"seeg", Sensor::IntracranialEeg},
                                       {"ieeg", Sensor::IntracranialEeg},
                                       {"ecog", Sensor::IntracranialEeg},
                                       {"dbs", Sensor::IntracranialEeg}}};

bool IsDigit(char c) {
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

bool IsNumber(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

/// Names padded with dots ("Fc5.", "Cz..") are found in public collections.
std::string_view WithoutDots(std::string_view text) {
    while (text.ends_with('.')) {
        text.remove_suffix(1);
    }
    return Trim(text);
}

/// Takes a leading word such as "EEG " off the label and says what it means.
std::optional<Sensor::Type> TakePrefix(std::string_view& label) {
    for (const Prefix& prefix : kPrefixes) {
        const std::size_t size = prefix.word.size();
        if (label.size() > size + 1 && SameText(label.substr(0, size), prefix.word) &&
            std::string_view(" _-:").find(label[size]) != std::string_view::npos) {
            label = Trim(label.substr(size + 1));
            return prefix.type;
        }
    }
    return std::nullopt;
}

struct Electrode {
    std::string name;
    bool known = false;
    bool placed = false;
};

Electrode FindElectrode(std::string_view text) {
    text = WithoutDots(text);
    const auto standard = StandardPositions().find(LowerCase(text));
    if (standard != StandardPositions().end()) {
        return {standard->second.Name, true, true};
    }
    const auto* unplaced = std::find_if(kUnplaced.begin(), kUnplaced.end(),
                                        [&](std::string_view name) { return SameText(name, text); });
    if (unplaced != kUnplaced.end()) {
        return {std::string(*unplaced), true, false};
    }
    return {std::string(text), false, false};
}

bool IsPlainReference(std::string_view text) {
    return std::any_of(kPlainReferences.begin(), kPlainReferences.end(),
                       [&](std::string_view word) { return SameText(word, text); });
}

std::string ReferenceName(std::string_view text) {
    return IsPlainReference(text) ? std::string() : FindElectrode(text).name;
}

/// Name of what no table knows: only a reference that says nothing is taken off.
std::string UnknownName(std::string_view text, std::string_view first, std::string_view second) {
    return std::string(IsPlainReference(second) ? first : WithoutDots(text));
}

std::vector<std::string_view> SplitAtDashes(std::string_view text) {
    std::vector<std::string_view> parts;
    std::size_t dash = 0;
    while ((dash = text.find('-')) != std::string_view::npos) {
        parts.push_back(Trim(text.substr(0, dash)));
        text.remove_prefix(dash + 1);
    }
    parts.push_back(Trim(text));
    return parts;
}

/// Splits "Fp1-Ref-2": electrode, reference and the number that tells equal labels apart, which is dropped.
std::pair<std::string_view, std::string_view> SplitReference(std::string_view text) {
    std::vector<std::string_view> parts = SplitAtDashes(text);
    while (parts.size() > 1 && (IsNumber(parts.back()) || parts.back().empty())) {
        parts.pop_back();
    }
    if (parts.size() == 1) {
        return {parts[0], {}};
    }
    const char* first = parts[1].data();
    const char* last = parts.back().data() + parts.back().size();
    return {parts[0], WithoutDots({first, static_cast<std::size_t>(last - first)})};
}

} // namespace

ParsedLabel ParseLabel(std::string_view label) {
    ParsedLabel parsed;
    const std::string_view whole = Trim(label);
    std::string_view rest = whole;
    const std::optional<Sensor::Type> prefix = TakePrefix(rest);
    const auto [first, second] = SplitReference(rest);
    const Electrode electrode = FindElectrode(first);

    if (electrode.known) {
        const Electrode other = FindElectrode(second);
        parsed.name = electrode.name;
        parsed.reference = ReferenceName(second);
        parsed.known = true;
        parsed.placed = electrode.placed;
        parsed.pair = other.known && !IsEar(other.name) && !IsEar(electrode.name);
        parsed.type = electrode.placed ? Sensor::ScalpEeg : Sensor::UnplacedEeg;
        if (prefix == Sensor::IntracranialEeg) {
            parsed.type = prefix;
            parsed.known = parsed.placed = parsed.pair = false;
        }
    } else if (prefix) {
        // A number alone is no name: "EEG 001" stays whole.
        const bool number = electrode.name.empty() || IsNumber(electrode.name);
        parsed.name = number ? std::string(whole) : UnknownName(rest, first, second);
        const std::optional<Sensor::Type> words = TypeOfWords(LowerCase(first));
        parsed.type = words && prefix == Sensor::UnplacedEeg ? words : prefix;
    } else {
        parsed.name = UnknownName(rest, first, second);
        parsed.type = TypeOfWords(LowerCase(rest));
        if (!parsed.type && ParseContact(first) && first.find('\'') != std::string_view::npos) {
            parsed.type = Sensor::IntracranialEeg;
        }
    }
    if (parsed.name.empty()) {
        parsed.name = std::string(whole);
    }
    parsed.full = parsed.reference.empty() ? parsed.name : parsed.name + "-" + parsed.reference;
    return parsed;
}

std::optional<Contact> ParseContact(std::string_view name) {
    const auto* digits = std::find_if(name.begin(), name.end(), IsDigit);
    const std::string_view number(digits, name.end());
    const std::string_view stem(name.begin(), digits);
    const bool letters = std::all_of(stem.begin(), stem.end(), [](char c) {
        return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '\'' || c == ' ' || c == '_';
    });
    if (stem.empty() || !letters || !IsNumber(number) || number.size() > 3) {
        return std::nullopt;
    }
    return Contact{LowerCase(Trim(stem)), static_cast<unsigned>(*ParseWhole(number))};
}

} // namespace orvanta::signal
