// SPDX-License-Identifier: GPL-3.0-or-later
// Light and dark look of the windows.
#pragma once

#include "host/toolkit/export.h"

class QApplication;
class QPalette;

namespace owl {

enum class Appearance {
    System, ///< light or dark, as the desktop is
    Light,
    Dark
};

/// Colours of an appearance. Text stands out from its background by 4.5 : 1 or more (WCAG 2.1, AA), disabled
/// text by 3 : 1. \param dark else light
ORVANTA_TOOLKIT_API QPalette AppearancePalette(bool dark);

/// Gives all windows, also those that are open, one style, the colours and a font of at least 9 points. The
/// icons of controls that exist already keep the colour they were made in.
ORVANTA_TOOLKIT_API void ApplyAppearance(QApplication& application, Appearance appearance);

} // namespace owl
