// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/stored_user.h"

#include "host/platform/settings_store.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>

namespace orvanta::platform {

namespace {

template <class Number>
std::optional<Number> Read(const SettingsStore& store, const char* section, const char* key) {
    const std::optional<std::string> text = store.Get(section, key);
    if (!text) {
        return std::nullopt;
    }
    Number value{};
    const char* end = text->data() + text->size();
    const auto [stop, error] = std::from_chars(text->data(), end, value);
    return error == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

template <class Number>
void Write(SettingsStore& store, const char* section, const char* key, Number value) {
    std::array<char, 32> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value);
    store.Put(section, key, std::string(text.data(), end));
}

} // namespace

int StoredUser::GetInt(const char* section, const char* key, int defaultValue) const {
    return Read<int>(store_, section, key).value_or(defaultValue);
}

double StoredUser::GetDouble(const char* section, const char* key, double defaultValue) const {
    const std::optional<double> value = Read<double>(store_, section, key);
    return value && std::isfinite(*value) ? *value : defaultValue;
}

void StoredUser::PutInt(const char* section, const char* key, int value) {
    Write(store_, section, key, value);
}

void StoredUser::PutDouble(const char* section, const char* key, double value) {
    if (std::isfinite(value)) {
        Write(store_, section, key, value);
    }
}

} // namespace orvanta::platform
