// SPDX-License-Identifier: GPL-3.0-or-later
// The view's menu in the user's language.
#pragma once

namespace owl {
class TMenu;
}
class PModule;

namespace orvanta::spectral_maps {

/// Gives the items of the menu the texts of the message store, section "MENU", at most 127 bytes each;
/// an item without a text there keeps its own. \param messages may be null
void TranslateMenu(owl::TMenu& menu, const PModule* messages);

} // namespace orvanta::spectral_maps
