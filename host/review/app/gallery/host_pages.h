// SPDX-License-Identifier: GPL-3.0-or-later
// The application's and the window layer's own boxes for the gallery.
#pragma once

#include "host/review/app/module_bridge.h"

namespace orvanta::review {

/// \param sample outlives the pages
std::vector<GalleryPage> MakeHostPages(const GallerySample& sample);

} // namespace orvanta::review
