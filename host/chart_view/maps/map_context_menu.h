// SPDX-License-Identifier: GPL-3.0-or-later
// The menu that a view of maps shows at the mouse.
#pragma once

#include "host/toolkit/event_handler.h"
#include "host/toolkit/menu.h"
#include "spectra_contract/api.h"

#include <cstddef>
#include <string>
#include <vector>

namespace orvanta::chart {

/// A map for which the menu offers to choose what it shows.
struct MapToSet {
    std::size_t index;
    std::string title;
};

/// What the menu offers, and what its check marks show.
struct MapMenuState {
    std::vector<MapToSet> maps; ///< of several each has an item of a menu below
    bool threeD = false;        ///< else without what is for heads
    bool locked = false;
    bool electrodes = false;
    bool names = false;
    bool values = false;
    bool singlePalette = false;
    bool table = false;
};

/// Lives until the next one is made. \param window owns it \param handler runs its commands
ORVANTA_API owl::TMenu* MakeMapContextMenu(QWidget& window, owl::TEventHandler& handler,
                                           const MapMenuState& state);

} // namespace orvanta::chart
