// SPDX-License-Identifier: GPL-3.0-or-later
// What the menu items of the commands look like.
#include "host/toolkit/command_enabler.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectral_maps/spect_map.h"

void SpectMap::CeCartoonMode(owl::TCommandEnabler& item) {
    item.SetCheck(cartoonMode_);
}

void SpectMap::CeNextSelection(owl::TCommandEnabler& item) {
    const SpectMacroResult* main = spectraMgr_->GetMain();
    item.Enable(main != nullptr && main->GetMacro().GetTimeIntervalSelectMode() ==
                                       SpectraMacro::TimeIntervalSelectMode::ByDuration);
}

void SpectMap::CeTable(owl::TCommandEnabler& item) {
    item.Enable(spectraMgr_->GetMain() != nullptr);
}
