// SPDX-License-Identifier: GPL-3.0-or-later
// A page of maps as settings of the view.
#pragma once

#include "host/review/app/maps_page.h"

class GlobalWindow;

namespace orvanta::review {

/// A maps view that is made from now on shows this page.
/// \param page with maps, rows and columns
void PutMapsSettings(const GlobalWindow& window, const MapsPage& page);

} // namespace orvanta::review
