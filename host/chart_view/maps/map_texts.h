// SPDX-License-Identifier: GPL-3.0-or-later
// Texts and numbers on maps, as the user reads them.
#pragma once

#include "host/chart_view/maps/map_window.h"
#include "host/chart_view/topography/color_scale.h"

#include <string>

namespace orvanta::chart {

/// A text of the message store's section "Maps", else \p builtIn.
ORVANTA_API std::string MapText(const char* key, const std::string& builtIn);

/// Decimals of values on a scale: three digits of its larger end, and as many as its width needs for two. 0
/// to 9.
ORVANTA_API int DecimalsFor(const ValueRange& scale);

/// With the user's decimal sign; "n/a" when it is not finite. \param platform may be null
ORVANTA_API std::string NumberText(const GenericPlatform* platform, double value, int decimals);

/// With numbers at its ends and in its middle; one number when it has no width.
ORVANTA_API ColorScale ColorScaleOf(const GenericPlatform* platform, const ValueRange& scale,
                                    const std::string& unit);

} // namespace orvanta::chart
