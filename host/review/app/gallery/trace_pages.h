// SPDX-License-Identifier: GPL-3.0-or-later
// The trace view for the gallery.
#pragma once

#include "host/review/app/module_bridge.h"

namespace orvanta::review {

std::vector<GalleryPage> MakeTracePages(const GallerySample& sample);

} // namespace orvanta::review
