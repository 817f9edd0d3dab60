// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/view_font.h"

#include "spectra_contract/platform.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

/// Above 0 whatever is stored; below 0 it may be the height of the characters alone.
int StoredHeight(const UserType& user, const char* section, int height) {
    constexpr int kTallest = 1000; // pixels
    const int stored = std::abs(std::clamp(user.GetInt(section, "FontHeight", height), -kTallest, kTallest));
    return stored != 0 ? stored : height;
}

} // namespace

owl::TFont StoredViewFont(const GenericPlatform& platform, const char* section, const owl::TFont& font) {
    constexpr int kMostCharacters = 127;
    std::array<char, kMostCharacters + 1> face{};
    platform.ReadString(section, "FontFace", font.face.c_str(), face.data(), kMostCharacters);
    const UserType& user = *platform.GetUser();
    return {face.data(), StoredHeight(user, section, font.height),
            user.GetInt(section, "FontBold", font.bold ? 1 : 0) != 0,
            user.GetInt(section, "FontItalic", font.italic ? 1 : 0) != 0};
}

void StoreViewFont(GenericPlatform& platform, const char* section, const owl::TFont& font) {
    platform.WriteString(section, "FontFace", font.face.c_str());
    UserType& user = *platform.GetUser();
    user.PutInt(section, "FontHeight", font.height);
    user.PutInt(section, "FontBold", font.bold ? 1 : 0);
    user.PutInt(section, "FontItalic", font.italic ? 1 : 0);
}
