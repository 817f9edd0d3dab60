// SPDX-License-Identifier: GPL-3.0-or-later
// Why a view has nothing to show.
#pragma once

#include "spectrum_view/state/view_state.h"
#include "spectrum_view/traces/trace_list.h"

#include <string>

class PModule;

namespace orvanta::spectrum_view {

/// One line that says why no plot of the view shows anything, and what to do; empty when one does.
/// \param entries with their rectangles
/// \param messages may be null
std::string PageNotice(const SpectraMgr& manager, const ViewState& view, const DisplaySettings& display,
                       std::span<const TraceEntry> entries, const PModule* messages);

} // namespace orvanta::spectrum_view
