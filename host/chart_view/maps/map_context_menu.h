// SPDX-License-Identifier: GPL-3.0-or-later
// The menu that a view of maps shows at the mouse.
#pragma once

#include "host/toolkit/event_handler.h"
#include "host/toolkit/menu.h"
#include "spectra_contract/api.h"

namespace orvanta::chart {

/// What its check marks show.
struct MapMenuState {
    bool threeD = false; ///< else without what is for heads
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
