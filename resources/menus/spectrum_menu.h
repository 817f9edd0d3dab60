// SPDX-License-Identifier: GPL-3.0-or-later
// The menu of the spectrum view.
#pragma once

#include "host/toolkit/menu.h"

namespace orvanta::resources {

inline constexpr unsigned kSpectrumMenu = 8320;

/// One item per measure entity is appended behind the last separator when the view is set up.
inline constexpr owl::MenuItem kSpectrumMenuItems[] = {
    {9344, "&View Spectrum"},
    {14376, "&Recompute"},
    {14447, "Computation Options..."},
    {14476, "Next Selection"},
    {14437, "Save Spectra"},
    {14438, "Save Spectra and Launch Calvera Merovia Tabulix"},
    {0, ""},
    {14346, "&Mean"},
    {14348, "Compressed Spectral Array (CSA)"},
    {14347, "&Time/Freq"},
    {0, ""},
    {14356, "&Scalp View"},
    {14357, "&Grid View"},
    {0, ""},
    {14506, "Normal display"},
    {14508, "Normalized by f display"},
    {14509, "Normalized by sqrt(f) display"},
    {0, ""},
    {14396, "Select M&easures..."},
    {14439, "&Copy Measures to Clipboard"},
    {0, ""},
    {14386, "Define &Bands..."},
    {14426, "C&ommon Scale"},
    {14449, "Set Scale Axis Range..."},
    {0, ""},
    {14448, "Select &Font"},
    {0, ""},
    {14496, "Show Points"},
    {14497, "Show Lines"},
    {14498, "Show SD"},
    {0, ""},
    {14499, "Show Measures Box"},
    {14500, "Show Axes Text"},
    {14501, "Show Labels"},
    {0, ""},
};

} // namespace orvanta::resources
