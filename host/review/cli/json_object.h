// SPDX-License-Identifier: GPL-3.0-or-later
// A JSON object written member by member.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvanta::cli {

/// Keeps text, not a tree: spectra are a million numbers, and a node for each of them costs more than all the
/// rest.
class JsonObject {
public:
    void Add(std::string_view key, const nlohmann::ordered_json& value);
    /// An array of numbers in shortest form; null for what is not finite.
    void AddNumbers(std::string_view key, std::span<const double> values);
    /// The members of another object.
    void AddMembers(const JsonObject& other);
    /// An array of objects.
    void AddObjects(std::string_view key, const std::vector<JsonObject>& objects);
    /// "{…}".
    std::string Text() const& { return text_ + '}'; }
    std::string Text() && { return std::move(text_ += '}'); }

private:
    void AddKey(std::string_view key);

    std::string text_ = "{";
};

} // namespace orvanta::cli
