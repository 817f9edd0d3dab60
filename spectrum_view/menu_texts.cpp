// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/menu_texts.h"

#include "host/toolkit/menu.h"
#include "host/toolkit/message_module.h"
#include "spectrum_view/command_ids.h"

namespace orvanta::spectrum_view {

namespace {

struct ItemText {
    const char* key;
    unsigned id;
};

constexpr ItemText kItemTexts[] = {
    {"CM_SPE_MEAN", kCmMean},
    {"CM_SPE_TIME_FREQ", kCmTimeFreq},
    {"CM_SPE_HEAD_VIEW", kCmHeadView},
    {"CM_SPE_GRID_VIEW", kCmGridView},
    {"CM_SPE_MEA", kCmMeasures},
    {"CM_SPE_RECOMPUTE", kCmRecompute},
    {"CM_SPE_SET_BND", kCmSetBands},
    // The entities' items do not exist yet: they carry the library's names.
    {"CM_SPE_SET_POW", kCmSetEntity + 1},
    {"CM_SPE_SET_AMP", kCmSetEntity},
    {"CM_SPE_SET_COM", kCmSetCommon},
    {"CM_SPE_COPY2CLPBRD", kCmCopyMeasures},
    {"CM_SPE_OPTIONS", kCmEditOptions},
    {"CM_SPE_VIEW", kCmView},
    {"CM_SPE_NEXT_SELECTION", kCmNextSelection},
    {"CM_SPE_SAVE", kCmSaveSpectra},
    {"CM_SPE_SAVE_LAUNCH", kCmSaveAndLaunch},
    {"CM_SPE_CSA", kCmCsa},
    {"CM_SPE_NORM_NONE", kCmNormalizeNone},
    {"CM_SPE_NORM_F", kCmNormalizeByF},
    {"CM_SPE_NORM_SQRT_F", kCmNormalizeBySqrtF},
    {"CM_SPE_SET_AXIS", kCmSetMaxAxis},
    {"CM_SPE_FONT", kCmSelectFont},
    {"CM_SPE_SHOW_POINTS", kCmShowPoints},
    {"CM_SPE_SHOW_LINES", kCmShowLines},
    {"CM_SPE_SHOW_SD", kCmShowSd},
    {"CM_SPE_SHOW_MEASURES", kCmShowMeasures},
    {"CM_SPE_SHOW_AXES", kCmShowAxesText},
    {"CM_SPE_SHOW_LABELS", kCmShowLabels},
};

} // namespace

void TranslateMenu(owl::TMenu& menu, const PModule* messages) {
    if (messages == nullptr) {
        return;
    }
    for (const auto& [key, id] : kItemTexts) {
        const std::string text = messages->GetMsg2("MENU", key);
        if (!text.empty()) {
            menu.SetItemText(id, text);
        }
    }
}

} // namespace orvanta::spectrum_view
