// SPDX-License-Identifier: GPL-3.0-or-later
// The sections and keys of a header or marker file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orvanta::signal::brainvision {

/// "key = value" below "[section]".
struct IniEntry {
    std::string section;    ///< lower case, without blanks
    std::string key;        ///< lower case, without blanks
    std::string_view value; ///< trimmed; lies in the parsed text
    std::size_t line = 0;   ///< counted from 1
};

/// The entries of \p text in order, which must outlive them. Lines that start with ";" are comments; lines
/// that are neither a section nor hold "=" are left out.
std::vector<IniEntry> ParseIni(std::string_view text);

/// The first entry of a key (folded as in IniEntry); null when there is none.
const IniEntry* FindEntry(const std::vector<IniEntry>& entries, std::string_view section,
                          std::string_view key);

/// Lower case without blanks: how sections, keys and names of formats are compared.
std::string Folded(std::string_view text);

/// \p text split at commas, each part trimmed and with "\1" turned back into a comma; at least one part.
std::vector<std::string> SplitFields(std::string_view text);

} // namespace orvanta::signal::brainvision
