// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/view_font.h"

#include "spectra_contract/platform.h"

#include <array>

owl::TFont StoredViewFont(const GenericPlatform& platform, const char* section, const owl::TFont& font) {
    constexpr int kMostCharacters = 127;
    std::array<char, kMostCharacters + 1> face{};
    platform.ReadString(section, "FontFace", font.face.c_str(), face.data(), kMostCharacters);
    const UserType& user = *platform.GetUser();
    return {face.data(), user.GetInt(section, "FontHeight", font.height),
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
