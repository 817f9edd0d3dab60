// SPDX-License-Identifier: GPL-3.0-or-later
// The numbers among a user's settings.
#pragma once

#include "spectra_contract/platform.h"

#include <string>

namespace orvanta::platform {

class SettingsStore;

/// Numbers as texts of a settings store, which must outlive this. Written free of any locale, doubles in the
/// shortest form that reads back equal. A double that is not finite is not stored, nor read.
class ORVANTA_API StoredUser final : public UserType {
public:
    explicit StoredUser(SettingsStore& store) : store_(store) {}

    int GetInt(const char* section, const char* key, int defaultValue) const override;
    double GetDouble(const char* section, const char* key, double defaultValue) const override;
    /// \throws std::invalid_argument as SettingsStore::Put
    void PutInt(const char* section, const char* key, int value) override;
    void PutDouble(const char* section, const char* key, double value) override;

private:
    SettingsStore& store_;
};

} // namespace orvanta::platform
