// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/json_object.h"

#include "host/spectral_data/files/number_text.h"

#include <nlohmann/json.hpp>

#include <cmath>

namespace orvanta::cli {

void JsonObject::AddKey(std::string_view key) {
    text_ += text_.size() > 1 ? "," : "";
    text_ += nlohmann::json(key).dump();
    text_ += ':';
}

void JsonObject::Add(std::string_view key, const nlohmann::ordered_json& value) {
    AddKey(key);
    text_ += value.dump();
}

void JsonObject::AddNumbers(std::string_view key, std::span<const double> values) {
    AddKey(key);
    constexpr std::size_t kUsualNumber = 24; // characters, comma included
    text_.reserve(text_.size() + values.size() * kUsualNumber + 2);
    text_ += '[';
    for (const double value : values) {
        if (std::isfinite(value)) {
            spectral::AppendNumber(text_, value);
        } else {
            text_ += "null";
        }
        text_ += ',';
    }
    if (!values.empty()) {
        text_.pop_back();
    }
    text_ += ']';
}

void JsonObject::AddMembers(const JsonObject& other) {
    if (other.text_.size() > 1) {
        text_ += text_.size() > 1 ? "," : "";
        text_.append(other.text_, 1);
    }
}

void JsonObject::AddObjects(std::string_view key, const std::vector<JsonObject>& objects) {
    AddKey(key);
    std::size_t length = text_.size() + 2;
    for (const JsonObject& object : objects) {
        length += object.text_.size() + 2;
    }
    text_.reserve(length);
    text_ += '[';
    for (const JsonObject& object : objects) {
        text_ += object.text_;
        text_ += "},";
    }
    if (!objects.empty()) {
        text_.pop_back();
    }
    text_ += ']';
}

} // namespace orvanta::cli
