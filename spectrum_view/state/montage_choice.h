// SPDX-License-Identifier: GPL-3.0-or-later
// Which montage and mode the layout and the entity ask for.
#pragma once

#include "spectra_contract/montage.h"
#include "spectra_contract/spectra_types.h"

class EEGFileInfoType;

namespace orvanta::spectrum_view {

/// What has to change; then the first trace is 0 again and the spectra are computed anew.
struct Adjustment {
    const MontageType* montage = nullptr; ///< to switch to; null to stay
    bool toMean = false;                  ///< the mode becomes mean

    bool IsNeeded() const { return montage != nullptr || toMean; }

    bool operator==(const Adjustment&) const = default;
};

/// In scalp layout amplitude and power need a mappable montage, else the "as recorded" one is taken;
/// coherence and phase need the reference montage and the mean. A montage equal to the current one is no
/// change, so that a recording which has none that is mappable comes to rest. In grid layout nothing changes.
Adjustment AdjustmentOf(Layout::Mode layout, SPECT::Entity::Type entity, SPECT::Data::Mode mode,
                        const EEGFileInfoType& recording);

} // namespace orvanta::spectrum_view
