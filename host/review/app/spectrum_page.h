// SPDX-License-Identifier: GPL-3.0-or-later
// How the spectrum view shows its analyses, chosen beforehand instead of in its menu. No Qt here.
#pragma once

#include "spectra_contract/spectra_types.h"

namespace orvanta::review {

/// The members start as a new user's view does.
struct SpectrumPage {
    Layout::Mode layout = Layout::Mode::Grid;
    SPECT::Data::Mode mode = SPECT::Data::Mode::Mean;
    int rows = 4; ///< of the grid
    int columns = 4;
    SPECT::FrequencyRange range{0, 32}; ///< Hz
    bool points = true;
    bool lines = true; ///< drop lines
    bool sd = false;
    bool labels = true;
    bool axesText = true;
    bool measuresBox = true;
    bool commonScale = false;
    bool title = true;
};

} // namespace orvanta::review
