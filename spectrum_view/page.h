// SPDX-License-Identifier: GPL-3.0-or-later
// All that a view shows, drawn from its traces.
#pragma once

#include "host/toolkit/dc.h"
#include "spectrum_view/state/view_state.h"
#include "spectrum_view/traces/over_time_plots.h"
#include "spectrum_view/traces/trace_list.h"

class EEGFileInfoType;
class GenericPlatform;
class PModule;
class SpectraMgr;

namespace orvanta::spectrum_view {

/// What a page is drawn from; all of it must outlive the call.
struct Page {
    const SpectraMgr& manager;
    EEGFileInfoType& recording;
    const ViewState& view;
    const DisplaySettings& display;
    const GenericPlatform& platform; ///< of the numbers
    const PModule* messages;         ///< may be null
    owl::TFont font;
    owl::TRect area; ///< the whole page
    // On the window's background.
    owl::TColor textColor;
    owl::TColor lineColor;
};

/// Draws the head behind a scalp layout, the slots that meet \p damaged in the order of \p traces, the title,
/// and a notice when there is nothing to show.
/// \param overTime of this view
void PaintPage(owl::TDC& dc, const Page& page, std::span<const TraceEntry> traces, OverTimePlots& overTime,
               const owl::TRect& damaged);

} // namespace orvanta::spectrum_view
