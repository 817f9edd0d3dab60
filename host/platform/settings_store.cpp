// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/settings_store.h"

#include "host/platform/atomic_file.h"

// Bytes pass as they are: the library for conversions would be needed otherwise.
#define SI_NO_CONVERSION
#define SI_IMPLEMENTATION
#include <SimpleIni.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

namespace orvanta::platform {

namespace {

constexpr std::uintmax_t kMaxFileBytes = 16U << 20U;

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool HasControls(std::string_view text) {
    return std::any_of(text.begin(), text.end(),
                       [](char c) { return (static_cast<unsigned char>(c) < 32 && c != '\t') || c == 127; });
}

bool IsName(std::string_view name) {
    return !name.empty() && !HasControls(name) && !IsBlank(name.front()) && !IsBlank(name.back());
}

void RequireStorable(const std::string& section, const std::string& key, const std::string& value) {
    const auto refuse = [&](const char* reason) {
        throw std::invalid_argument("setting [" + section + "] " + key + ": " + reason);
    };
    if (!IsName(section) || section.find(']') != std::string::npos) {
        refuse("the section is no name for a settings file (leave out line breaks, outer blanks and \"]\")");
    }
    if (!IsName(key) || key.find('=') != std::string::npos ||
        std::string_view("[;#").find(key.front()) != std::string_view::npos) {
        refuse("the key is no name for a settings file (leave out line breaks, outer blanks and \"=\")");
    }
    if (HasControls(value)) {
        refuse("the value has line breaks or other control characters (leave them out)");
    }
}

bool IsQuoted(std::string_view text) {
    return text.size() >= 2 && text.front() == '"' && text.back() == '"';
}

/// The file drops blanks around a value, and a reader drops one pair of quotes: one more pair protects both.
std::string Quoted(const std::string& value) {
    const bool protect =
        !value.empty() && (IsBlank(value.front()) || IsBlank(value.back()) || IsQuoted(value));
    return protect ? '"' + value + '"' : value;
}

std::string Unquoted(std::string_view text) {
    return std::string(IsQuoted(text) ? text.substr(1, text.size() - 2) : text);
}

std::string ReadText(const std::string& path) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::not_found) {
        return {};
    }
    if (status.type() != std::filesystem::file_type::regular) {
        throw std::runtime_error(path + ": " + (error ? error.message() : "not a regular file") +
                                 " (move it away; settings are not kept until then)");
    }
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error || size > kMaxFileBytes) {
        throw std::runtime_error(path + ": " + (error ? error.message() : "too large for a settings file") +
                                 " (move it away; settings are not kept until then)");
    }
    std::string text(size, '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(text.data(), static_cast<std::streamsize>(size));
    if (!file) {
        throw std::runtime_error(path +
                                 ": cannot be read (allow reading it; settings are not kept until then)");
    }
    return text;
}

void Load(CSimpleIniA& ini, const std::string& path) {
    const std::string text = ReadText(path);
    if (ini.LoadData(text) < 0) {
        throw std::bad_alloc();
    }
}

} // namespace

struct SettingsStore::Impl {
    std::string path;
    std::string loadError;
    CSimpleIniA ini{true, false, false};
    std::vector<std::pair<std::string, std::string>> changed; ///< section and key
};

SettingsStore::SettingsStore(std::string path) : impl_(std::make_unique<Impl>()) {
    impl_->path = std::move(path);
    try {
        Load(impl_->ini, impl_->path);
    } catch (const std::runtime_error& error) {
        impl_->loadError = error.what();
    }
}

SettingsStore::~SettingsStore() = default;

std::optional<std::string> SettingsStore::Get(const std::string& section, const std::string& key) const {
    const char* value = impl_->ini.GetValue(section.c_str(), key.c_str());
    return value == nullptr ? std::nullopt : std::optional(Unquoted(value));
}

void SettingsStore::Put(const std::string& section, const std::string& key, const std::string& value) {
    RequireStorable(section, key, value);
    if (Get(section, key) == value) {
        return;
    }
    if (impl_->ini.SetValue(section.c_str(), key.c_str(), Quoted(value).c_str()) < 0) {
        throw std::bad_alloc();
    }
    if (const std::pair name(section, key);
        std::find(impl_->changed.begin(), impl_->changed.end(), name) == impl_->changed.end()) {
        impl_->changed.push_back(name);
    }
}

bool SettingsStore::IsChanged() const {
    return !impl_->changed.empty();
}

void SettingsStore::Save() {
    if (!IsChanged() || impl_->path.empty()) {
        return;
    }
    CSimpleIniA now{true, false, false};
    Load(now, impl_->path);
    for (const auto& [section, key] : impl_->changed) {
        if (now.SetValue(section.c_str(), key.c_str(), impl_->ini.GetValue(section.c_str(), key.c_str())) <
            0) {
            throw std::bad_alloc();
        }
    }
    std::string text;
    if (now.Save(text) < 0) {
        throw std::bad_alloc();
    }
    const auto folder = std::filesystem::path(impl_->path).parent_path();
    std::error_code error;
    if (!folder.empty() && (std::filesystem::create_directories(folder, error), error)) {
        throw std::runtime_error(impl_->path + ": the folder cannot be made: " + error.message() +
                                 " (allow writing there)");
    }
    WriteFileAtomically(impl_->path, text);
    impl_->changed.clear();
}

const std::string& SettingsStore::GetPath() const {
    return impl_->path;
}

const std::string& SettingsStore::GetLoadError() const {
    return impl_->loadError;
}

} // namespace orvanta::platform
