// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/recording/record_label.h"

#include "host/signal_base/text.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

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

std::string WithoutSeparators(std::string_view text) {
    std::string label(Trim(text));
    std::replace_if(
        label.begin(), label.end(),
        [](char c) { return c == '/' || c == '\\' || static_cast<unsigned char>(c) < 0x20; }, '-');
    return label;
}

} // namespace

std::string RecordLabel(const RecordingData& data) {
    for (const std::string* field : {&data.patient, &data.record}) {
        if (!IsAnonymous(*field)) {
            return WithoutSeparators(*field);
        }
    }
    return WithoutSeparators(std::filesystem::path(data.path).stem().string());
}

std::string FileNameText(const std::string& path) {
    return std::filesystem::path(path).filename().string();
}

} // namespace orvanta::signal
