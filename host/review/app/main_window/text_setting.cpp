// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/text_setting.h"

#include "spectra_contract/platform.h"

namespace orvanta::review {

std::string ReadText(const GenericPlatform& platform, const std::string& key) {
    constexpr int kLongest = 1 << 16;
    std::string text(kLongest + 1, '\0');
    platform.ReadString(kHostSection, key.c_str(), "", text.data(), kLongest);
    text.resize(text.find('\0'));
    return text;
}

void WriteText(GenericPlatform& platform, const std::string& key, const std::string& text) {
    platform.WriteString(kHostSection, key.c_str(), text.c_str());
}

} // namespace orvanta::review
