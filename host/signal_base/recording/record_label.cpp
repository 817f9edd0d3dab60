// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/recording/record_label.h"

#include "host/signal_base/text.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <sstream>
#include <vector>

namespace orvanta::signal {

namespace {

/// Whether a word tells anything: not the EDF+ placeholder, nor the fixed word or date of the record field.
bool Tells(const std::string& word, const std::string& before) {
    return !SameText(word, "X") && !SameText(word, "Startdate") && !SameText(before, "Startdate");
}

bool IsAnonymous(const std::string& field) {
    std::istringstream words(field);
    std::string before;
    for (std::string word; words >> word; before = word) {
        if (Tells(word, before)) {
            return false;
        }
    }
    return true;
}

/// The patient without the placeholders among the four subfields that EDF+ puts first.
std::string KnownOf(const std::string& patient) {
    constexpr std::size_t kSubfields = 4; // code, sex, birth date, name
    std::istringstream text(patient);
    const std::vector<std::string> words{std::istream_iterator<std::string>(text), {}};
    if (words.size() < kSubfields) {
        return patient; // not of EDF+
    }
    std::string known;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (i >= kSubfields || words[i] != "X") {
            known += (known.empty() ? "" : " ") + words[i];
        }
    }
    return known;
}

std::string WithoutSeparators(std::string_view text) {
    std::string label(Trim(text));
    std::replace_if(
        label.begin(), label.end(),
        [](char c) { return c == '/' || c == '\\' || static_cast<unsigned char>(c) < 0x20; }, '-');
    return label;
}

} // namespace

std::string RecordLabel(const RecordingData& data) {
    if (!IsAnonymous(data.patient)) {
        return WithoutSeparators(KnownOf(data.patient));
    }
    if (!IsAnonymous(data.record)) {
        return WithoutSeparators(data.record);
    }
    return WithoutSeparators(std::filesystem::path(data.path).stem().string());
}

std::string FileNameText(const std::string& path) {
    return std::filesystem::path(path).filename().string();
}

} // namespace orvanta::signal
