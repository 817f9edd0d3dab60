// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/saving/text_setting.h"

#include "spectra_contract/platform.h"
#include "spectrum_view/state/stored_state.h"

#include <array>

namespace orvanta::spectrum_view {

std::string TextSetting(const GenericPlatform& platform, const char* key, const char* absent) {
    constexpr int kMostCharacters = 259;
    std::array<char, kMostCharacters + 1> text{};
    platform.ReadString(kSection, key, absent, text.data(), kMostCharacters);
    return text.data();
}

} // namespace orvanta::spectrum_view
