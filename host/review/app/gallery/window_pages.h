// SPDX-License-Identifier: GPL-3.0-or-later
// The application's window for the gallery.
#pragma once

#include "host/review/app/module_bridge.h"

namespace orvanta::review {

/// \param bridge null without the module; must outlive the pages
std::vector<GalleryPage> MakeWindowPages(const GallerySample& sample, ModuleBridge* bridge);

} // namespace orvanta::review
