// SPDX-License-Identifier: GPL-3.0-or-later
// The spectrum view with its side bar in a window, for the gallery.
#pragma once

#include "host/review/app/module_bridge.h"

class QSize;

namespace orvanta::review {

/// Shows closed eyes against open eyes, t-test and ratio, on the scalp.
/// \param manager of computed analyses with a main and a secondary one
void ShowSpectrumWindow(const GallerySample& sample, SpectraMgr& manager, const QSize& size,
                        const TakePicture& take);

} // namespace orvanta::review
