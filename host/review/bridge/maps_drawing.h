// SPDX-License-Identifier: GPL-3.0-or-later
// The maps view, drawn without being shown.
#pragma once

#include "host/review/app/maps_page.h"
#include "host/review/app/module_bridge.h"

namespace orvanta::review {

std::vector<DrawnMap> DrawMapsPage(GlobalWindow& window, EEGFileInfoType& recording, SpectraMgr& manager,
                                   const MapsPage& page, const owl::TSize& size, owl::TDC& dc);

void DrawMapsCartoon(GlobalWindow& window, EEGFileInfoType& recording, SpectraMgr& manager,
                     const MapsPage& page, const owl::TSize& size, const TakeFrame& take);

} // namespace orvanta::review
