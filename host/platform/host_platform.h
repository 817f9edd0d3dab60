// SPDX-License-Identifier: GPL-3.0-or-later
// The host platform: what the libraries and the module ask of the program they run in.
#pragma once

#include "host/platform/settings_store.h"
#include "host/platform/stored_user.h"
#include "host/platform/user_folders.h"
#include "spectra_contract/platform.h"

#include <string>

namespace orvanta::platform {

/// Settings of one user, messages and progress through the program's GUI, number text in the program's
/// LC_NUMERIC. One thread, the GUI's.
class ORVANTA_API HostPlatform final : public GenericPlatform {
public:
    /// \param gui message and progress channel; must outlive this. Told when the settings cannot be read.
    /// \param settingsFile empty: the settings are the defaults and live in memory only
    /// \param dataFolder parent of the application folders
    explicit HostPlatform(const GenericGUI& gui, std::string settingsFile = DefaultSettingsFile(),
                          std::string dataFolder = DefaultDataFolder());
    /// Saves the settings that have changed.
    ~HostPlatform() override;
    HostPlatform(const HostPlatform&) = delete;
    HostPlatform& operator=(const HostPlatform&) = delete;

    void FloatToStrLoc(char* buffer, int size, double value, int decimals) const override;
    const GenericGUI* GetGUI() const override { return &gui_; }
    UserType* GetUser() const override { return &user_; }
    /// A value that is too long is cut before the first UTF-8 character that does not fit.
    void ReadString(const char* section, const char* key, const char* defaultValue, char* buffer,
                    int maxLength) const override;
    /// A text that a settings file cannot hold is refused with a message.
    void WriteString(const char* section, const char* key, const char* value) override;
    /// Null when the GUI shows no progress. \p parent is the GUI's business.
    GenericProgress* CreateProgress(const char* text, const MSWindow& parent) const override;
    /// "DATA_FOLDER/NAME/". When the folder cannot be made, whoever uses it finds out and says so.
    std::string GetAppFolder(const char* name) const override;

    /// Brings changed settings to the file. False, after a message, when that failed; they then stay in
    /// memory.
    bool SaveSettings();
    /// The same without a message. \return why it failed; empty when it did not
    std::string TryToSaveSettings();

private:
    const GenericGUI& gui_;
    SettingsStore settings_;
    mutable StoredUser user_;
    std::string dataFolder_;
};

} // namespace orvanta::platform
