// SPDX-License-Identifier: GPL-3.0-or-later
// Reference values made by the scripts in tools/reference.
#pragma once

#include <nlohmann/json.hpp>

#include <fstream>
#include <limits>
#include <stdexcept>
#include <string>

namespace orvanta::test {

inline std::string ReferencePath(const std::string& name) {
    return std::string(ORVANTA_TEST_DATA "/reference/") + name;
}

inline nlohmann::json ReadReference(const std::string& name) {
    std::ifstream file(ReferencePath(name));
    if (!file) {
        throw std::runtime_error("no reference file " + name);
    }
    return nlohmann::json::parse(file);
}

/// A number; null stands for not computable.
inline double NumberOrNaN(const nlohmann::json& value) {
    return value.is_null() ? std::numeric_limits<double>::quiet_NaN() : value.get<double>();
}

} // namespace orvanta::test
