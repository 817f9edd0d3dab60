// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/state/montage_choice.h"

#include "spectra_contract/recording.h"

namespace orvanta::spectrum_view {

namespace {

/// The target, or null when it is missing or already in use.
const MontageType* SwitchTo(const MontageType* target, const MontageType& current) {
    return target == nullptr || *target == current ? nullptr : target;
}

} // namespace

Adjustment AdjustmentOf(Layout::Mode layout, SPECT::Entity::Type entity, SPECT::Data::Mode mode,
                        const EEGFileInfoType& recording) {
    if (layout != Layout::Mode::Scalp) {
        return {};
    }
    const MontageType& current = recording.GetTraceInfo()->GetMtg();
    const MontageList& montages = *recording.GetMontageList();
    switch (entity) {
    case SPECT::Entity::Type::Amplitude:
    case SPECT::Entity::Type::Power:
        return {current.IsMappable() ? nullptr : SwitchTo(montages.GetUniMtg(), current), false};
    case SPECT::Entity::Type::Coherence:
    case SPECT::Entity::Type::Phase:
        return {SwitchTo(montages.GetRefMtg(), current), mode != SPECT::Data::Mode::Mean};
    }
    return {};
}

} // namespace orvanta::spectrum_view
