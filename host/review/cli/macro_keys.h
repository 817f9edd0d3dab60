// SPDX-License-Identifier: GPL-3.0-or-later
// Analysis settings as KEY=VALUE.
#pragma once

#include "spectra_contract/spectra_macro.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace orvanta::cli {

/// Applies "KEY=VALUE". Lists are comma-separated, blanks around a label do not count ("\," stands for a
/// comma in a label). \throws UsageError that names the key, the value and what is allowed
void SetKey(SpectraMacro& macro, const std::string& assignment);

/// Every key with its value, in a fixed order: numbers as numbers, lists as arrays, modes by name.
nlohmann::ordered_json KeysToJson(const SpectraMacro& macro);

/// Every "KEY=VALUE", in a fixed order, as SetKey takes them.
std::vector<std::string> KeysToText(const SpectraMacro& macro);

/// "KEY=VALUE" of one key, which must exist.
std::string KeyToText(const SpectraMacro& macro, std::string_view key);

/// Every key with its default and what it sets, and what lists look like, for help texts.
std::string KeyHelp();

} // namespace orvanta::cli
