// SPDX-License-Identifier: GPL-3.0-or-later
// The settings file of one user.
#pragma once

#include "spectra_contract/api.h"

#include <memory>
#include <optional>
#include <string>

namespace orvanta::platform {

/// Texts by section and key, kept in one INI file (UTF-8). Names are compared without regard to case. Lines
/// of the file that make no sense are passed over; comments are kept. One thread.
class ORVANTA_API SettingsStore {
public:
    /// Reads \p path; a missing file counts as empty. A file that is there but cannot be read leaves the
    /// store empty, and GetLoadError says why. Without a path the settings live in memory only.
    explicit SettingsStore(std::string path);
    ~SettingsStore();
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    /// Nothing when the setting is absent. Blanks around the text and quotes belong to it and are kept.
    std::optional<std::string> Get(const std::string& section, const std::string& key) const;
    /// Sets it in memory; Save brings it to the file.
    /// \throws std::invalid_argument when the file could not hold it: an empty name, a name with control
    /// characters or blanks around it, a section with "]", a key with "=" or a leading "[", ";" or "#", a
    /// value with control characters other than the tab
    void Put(const std::string& section, const std::string& key, const std::string& value);

    bool IsChanged() const;
    /// Brings the changes since the last Save into the file as it is now, so that two programs keep each
    /// other's settings, and replaces it atomically. Missing folders are made. Nothing happens without
    /// changes. \throws std::runtime_error "PATH: reason (remedy)"; the changes then stay in memory and the
    /// file whole
    void Save();

    const std::string& GetPath() const;
    /// Why the file could not be read, in one line; empty when it could.
    const std::string& GetLoadError() const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace orvanta::platform
