// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/brainvision/ini_text.h"

#include "host/signal_base/text.h"

#include <algorithm>

namespace orvanta::signal::brainvision {

namespace {

std::string Unescaped(std::string_view field) {
    std::string text;
    for (std::size_t at = 0; at < field.size();) {
        const bool comma = field.substr(at).starts_with("\\1");
        text += comma ? ',' : field[at];
        at += comma ? 2 : 1;
    }
    return text;
}

} // namespace

std::string Folded(std::string_view text) {
    std::string folded = LowerCase(Trim(text));
    std::erase_if(folded, [](char c) { return c == ' ' || c == '\t'; });
    return folded;
}

std::vector<IniEntry> ParseIni(std::string_view text) {
    std::vector<IniEntry> entries;
    std::string section;
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::string_view line = Trim(TakeLine(text));
        const std::size_t equals = line.find('=');
        if (line.starts_with('[') && line.ends_with(']')) {
            section = Folded(line.substr(1, line.size() - 2));
        } else if (!line.starts_with(';') && equals != std::string_view::npos) {
            entries.push_back(
                {section, Folded(line.substr(0, equals)), Trim(line.substr(equals + 1)), number});
        }
    }
    return entries;
}

const IniEntry* FindEntry(const std::vector<IniEntry>& entries, std::string_view section,
                          std::string_view key) {
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const IniEntry& entry) {
        return entry.section == section && entry.key == key;
    });
    return found == entries.end() ? nullptr : &*found;
}

std::vector<std::string> SplitFields(std::string_view text) {
    std::vector<std::string> fields;
    while (true) {
        const std::size_t comma = text.find(',');
        fields.push_back(Unescaped(Trim(text.substr(0, comma))));
        if (comma == std::string_view::npos) {
            return fields;
        }
        text.remove_prefix(comma + 1);
    }
}

} // namespace orvanta::signal::brainvision
