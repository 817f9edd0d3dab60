// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/host_platform.h"

#include "host/platform/folder_name.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <string_view>

namespace orvanta::platform {

namespace {

bool ContinuesCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

} // namespace

HostPlatform::HostPlatform(const GenericGUI& gui, std::string settingsFile, std::string dataFolder)
    : gui_(gui), settings_(std::move(settingsFile)), user_(settings_),
      dataFolder_(WithSeparator(std::move(dataFolder))) {
    if (!settings_.GetLoadError().empty()) {
        gui_.ShowWarning(settings_.GetLoadError());
    }
}

HostPlatform::~HostPlatform() {
    SaveSettings();
}

void HostPlatform::FloatToStrLoc(char* buffer, int size, double value, int decimals) const {
    if (buffer == nullptr || size < 1) {
        return;
    }
    const auto bytes = static_cast<std::size_t>(size);
    if (std::isfinite(value)) {
        // More decimals than the buffer has room for would be cut off anyway.
        std::snprintf(buffer, bytes, "%.*f", std::clamp(decimals, 0, size), value);
    } else {
        std::snprintf(buffer, bytes, "n/a");
    }
}

void HostPlatform::ReadString(const char* section, const char* key, const char* defaultValue, char* buffer,
                              int maxLength) const {
    if (buffer == nullptr || maxLength < 0) {
        return;
    }
    const std::string value =
        settings_.Get(section, key).value_or(defaultValue != nullptr ? defaultValue : "");
    std::size_t length = std::min(value.size(), static_cast<std::size_t>(maxLength));
    while (length > 0 && length < value.size() && ContinuesCharacter(value[length])) {
        --length;
    }
    std::memcpy(buffer, value.data(), length);
    buffer[length] = '\0';
}

void HostPlatform::WriteString(const char* section, const char* key, const char* value) {
    try {
        settings_.Put(section, key, value);
    } catch (const std::invalid_argument& error) {
        gui_.ShowError(error.what());
    }
}

GenericProgress* HostPlatform::CreateProgress(const char* text, const MSWindow& /*parent*/) const {
    return gui_.CreateProgress(text).release();
}

std::string HostPlatform::GetAppFolder(const char* name) const {
    std::string folder = WithSeparator(dataFolder_ + name);
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    return folder;
}

bool HostPlatform::SaveSettings() {
    const std::string failure = TryToSaveSettings();
    if (!failure.empty()) {
        gui_.ShowError(failure);
    }
    return failure.empty();
}

std::string HostPlatform::TryToSaveSettings() {
    try {
        settings_.Save();
        return {};
    } catch (const std::exception& error) {
        return error.what();
    }
}

} // namespace orvanta::platform
