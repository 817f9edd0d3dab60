// SPDX-License-Identifier: GPL-3.0-or-later
// How the maps view shows its analysis, chosen beforehand instead of in its menu. No Qt here.
#pragma once

#include "spectra_contract/spectra_types.h"

#include <string>
#include <vector>

namespace orvanta::review {

/// Where a head is looked at from.
enum class HeadSide { Top, Front, Left, Right, Back };

/// The members but for the maps start as a new user's view does.
struct MapsPage {
    std::vector<SPECT::PlotSet> maps; ///< one for each map, row by row; of a cartoon the first
    int rows = 0;                     ///< 0: as many as the maps need
    int columns = 0;                  ///< the same
    bool threeD = false;              ///< on heads
    HeadSide from = HeadSide::Top;
    std::string palette = "viridis";
    int contours = 6;
    bool electrodes = true;
    bool names = false;
    bool values = false;
    bool commonScale = false; ///< one for all maps, and one colour bar
};

} // namespace orvanta::review
