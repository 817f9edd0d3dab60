// SPDX-License-Identifier: GPL-3.0-or-later
// Colours of the trace view, for light and dark windows.
#pragma once

#include "host/review/app/traces/trace_group.h"
#include "host/toolkit/geometry.h"

namespace orvanta::review {

struct TraceColors {
    owl::TColor background = 0; ///< behind the traces
    owl::TColor margin = 0;     ///< behind names, labels and ruler
    owl::TColor text = 0;
    owl::TColor faint = 0; ///< text that stands back
    owl::TColor grid = 0;
    owl::TColor labelledGrid = 0; ///< below a time that is written
    owl::TColor baseline = 0;
    owl::TColor accent = 0;    ///< selection, page frame
    owl::TColor ownEvent = 0;  ///< that the user marked
    owl::TColor fileEvent = 0; ///< of the recording itself
    owl::TColor badEvent = 0;  ///< whose label starts with "bad"
    owl::TColor gap = 0;       ///< where nothing was recorded
    owl::TColor bad = 0;       ///< line of a bad channel
    std::array<owl::TColor, kTraceGroups> groups{};

    owl::TColor Of(TraceGroup group) const { return groups[static_cast<std::size_t>(group)]; }
};

/// \param base and \param window backgrounds of the palette
TraceColors ColorsFor(owl::TColor base, owl::TColor window, owl::TColor text);

/// \param share of \p top, 0 to 1
owl::TColor Blended(owl::TColor top, owl::TColor below, double share);

/// Black or white, whichever is easier to read on the colour.
owl::TColor TextOn(owl::TColor background);

} // namespace orvanta::review
