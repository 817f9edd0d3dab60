// SPDX-License-Identifier: GPL-3.0-or-later
// The maps view in a window, for the gallery.
#pragma once

#include "host/review/app/module_bridge.h"

class QSize;

namespace orvanta::review {

enum class MapsKind {
    Flat, ///< with the table of values
    Heads,
    Cartoon
};

/// \param manager of computed analyses with a main one
void ShowMapsWindow(const GallerySample& sample, SpectraMgr& manager, const QSize& size, MapsKind kind,
                    const TakePicture& take);

} // namespace orvanta::review
