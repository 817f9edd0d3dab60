// SPDX-License-Identifier: GPL-3.0-or-later
// The menu of the maps view.
#pragma once

#include "host/toolkit/menu.h"

namespace orvanta::resources {

inline constexpr unsigned kMapsMenu = 8304;

/// A view of flat maps takes the lock and the five sides out.
inline constexpr owl::MenuItem kMapsMenuItems[] = {
    {9328, "&View 3D Spectral Maps"},
    {14130, "&Recompute"},
    {14140, "&Computation Settings..."},
    {14143, "Maps Settings..."},
    {14170, "Cartoon Mode"},
    {14190, "Next Selection"},
    {0, ""},
    {14150, "&Lock Maps"},
    {14180, "&Copy Measures to Clipboard"},
    {14142, "Define &Bands..."},
    {0, ""},
    {14081, "&Select Palette..."},
    {14144, "&Select Font..."},
    {0, ""},
    {14100, "Top View"},
    {14102, "Left View"},
    {14103, "Right View"},
    {14101, "Front View"},
    {14104, "Back View"},
};

} // namespace orvanta::resources
