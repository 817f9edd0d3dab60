// SPDX-License-Identifier: GPL-3.0-or-later
// What went wrong in a batch of files, gathered so that the user is told once.
#pragma once

#include "spectra_contract/platform.h"

#include <cstddef>
#include <string>
#include <vector>

class PModule;

namespace orvanta::spectrum_view {

/// A message channel for saving files that waits for nobody: every message goes to the log, and an error is
/// the reason why the file was not saved.
class BatchFailures final : public GenericGUI {
public:
    /// From now on the reasons are those of this file.
    void NextFile(const std::string& name);
    /// Its spectra could not be computed, which will be why it is not saved.
    void NotComputed(const std::string& reason);

    void ShowError(const std::string& text) const override;
    void ShowWarning(const std::string& text) const override;
    /// None: the batch has its own.
    std::unique_ptr<GenericProgress> CreateProgress(const std::string& text) const override;

    /// "2 of 60 spectra files were not saved." and the first reasons below; empty when all were.
    /// \param messages may be null
    std::string Text(const PModule* messages) const;

private:
    std::size_t files_ = 0;
    std::string name_;
    std::string notComputed_;
    mutable std::vector<std::string> reasons_; ///< of each file that was not saved
};

/// The host's platform with its messages turned to another channel. Both must outlive this.
class PlatformWithGui final : public GenericPlatform {
public:
    PlatformWithGui(GenericPlatform& platform, const GenericGUI& gui) : platform_(platform), gui_(gui) {}

    void FloatToStrLoc(char* buffer, int size, double value, int decimals) const override {
        platform_.FloatToStrLoc(buffer, size, value, decimals);
    }
    const GenericGUI* GetGUI() const override { return &gui_; }
    UserType* GetUser() const override { return platform_.GetUser(); }
    void ReadString(const char* section, const char* key, const char* defaultValue, char* buffer,
                    int maxLength) const override {
        platform_.ReadString(section, key, defaultValue, buffer, maxLength);
    }
    void WriteString(const char* section, const char* key, const char* value) override {
        platform_.WriteString(section, key, value);
    }
    GenericProgress* CreateProgress(const char* text, const MSWindow& parent) const override {
        return platform_.CreateProgress(text, parent);
    }
    std::string GetAppFolder(const char* name) const override { return platform_.GetAppFolder(name); }

private:
    GenericPlatform& platform_;
    const GenericGUI& gui_;
};

} // namespace orvanta::spectrum_view
