// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectral_maps/menu_texts.h"

#include "host/toolkit/cut_text.h"
#include "host/toolkit/menu.h"
#include "host/toolkit/message_module.h"
#include "spectral_maps/command_ids.h"

namespace orvanta::spectral_maps {

namespace {

struct ItemText {
    const char* key;
    unsigned id;
};

constexpr std::size_t kMostBytes = 127;

constexpr ItemText kItemTexts[] = {
    {"CM_MAP_3D_PALETTE", kCmPalette},
    {"CM_MAP_3D_MACRO_OPTIONS", kCmOptions},
    {"CM_MAP_3D_RECOMPUTE", kCmRecompute},
    {"CM_MAP_3D_LOCK", kCmLock},
    {"CM_MAP_3D_MACRO_OPTIONS", kCmOptions},
    // Built in in English alone.
    {"CM_MAP_3D_VIEW", kCmView},
    {"CM_MAP_3D_CONFIGURE", kCmConfigure},
    {"CM_MAP_3D_CARTOON", kCmCartoon},
    {"CM_MAP_3D_NEXT_SELECTION", kCmNextSelection},
    {"CM_MAP_3D_COPY", kCmCopy},
    {"CM_MAP_3D_SET_BND", kCmSetBands},
    {"CM_MAP_3D_FONT", kCmSelectFont},
    {"CM_MAP_3D_TOP", kCmTopView},
    {"CM_MAP_3D_LEFT", kCmLeftView},
    {"CM_MAP_3D_RIGHT", kCmRightView},
    {"CM_MAP_3D_FRONT", kCmFrontView},
    {"CM_MAP_3D_BACK", kCmBackView},
};

} // namespace

void TranslateMenu(owl::TMenu& menu, const PModule* messages) {
    if (messages == nullptr) {
        return;
    }
    for (const auto& [key, id] : kItemTexts) {
        const std::string text = owl::CutAt(messages->GetMsg2("MENU", key), kMostBytes);
        if (!text.empty()) {
            menu.SetItemText(id, text);
        }
    }
}

} // namespace orvanta::spectral_maps
