// SPDX-License-Identifier: GPL-3.0-or-later
// What a spectrum view shows beyond its settings. No Qt here.
#pragma once

#include "spectra_contract/spectra_types.h"

#include <cstdint>

namespace orvanta::review {

/// What the view itself forgets when it ends; the layout follows from the montage. The members start as a
/// new view does.
struct SpectrumLook {
    SPECT::Data::Mode mode = SPECT::Data::Mode::Mean;
    SPECT::Normalisation normalisation = SPECT::Normalisation::None;
    bool labels = true;
    bool axesText = true;
    bool measuresBox = true;
    double gain = 1;              ///< of the searched vertical range, above 0
    std::uint64_t firstTrace = 0; ///< in the first slot of the grid

    bool operator==(const SpectrumLook&) const = default;
};

} // namespace orvanta::review
