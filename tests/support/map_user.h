// SPDX-License-Identifier: GPL-3.0-or-later
// A user's settings in memory.
#pragma once

#include "spectra_contract/platform.h"

#include <map>
#include <string>
#include <vector>

namespace orvanta::test {

/// Numbers by "section/key".
class MapUser final : public UserType {
public:
    int GetInt(const char* section, const char* key, int defaultValue) const override {
        return static_cast<int>(GetDouble(section, key, defaultValue));
    }
    double GetDouble(const char* section, const char* key, double defaultValue) const override {
        const std::string name = std::string(section) + "/" + key;
        asked.push_back(name);
        const auto found = values.find(name);
        return found == values.end() ? defaultValue : found->second;
    }
    void PutInt(const char* section, const char* key, int value) override { PutDouble(section, key, value); }
    void PutDouble(const char* section, const char* key, double value) override {
        const std::string name = std::string(section) + "/" + key;
        values[name] = value;
        written.push_back(name);
    }

    std::map<std::string, double> values;
    mutable std::vector<std::string> asked; ///< in order
    std::vector<std::string> written;       ///< in order
};

} // namespace orvanta::test
