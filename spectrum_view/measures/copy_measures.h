// SPDX-License-Identifier: GPL-3.0-or-later
// The command that copies the measures to the clipboard.
#pragma once

#include "host/toolkit/window_handle.h"
#include "spectra_contract/spectra_types.h"
#include "spectrum_view/state/grid_size.h"
#include "spectrum_view/traces/trace_list.h"

#include <span>
#include <string>

class GenericPlatform;
class PModule;
class SpectraMgr;

namespace orvanta::spectrum_view {

/// What a view copies, and who asks. The spectrum view's command is
///
///     CopyMeasures({*GW().GetPlatform(), GetMessages(), GW().GetErrorStr(), GetHandle(), *manager_,
///                   state_.layout, state_.grid, GetTraces()});
struct CopySource {
    const GenericPlatform& platform;
    const PModule* module;      ///< of the warnings' texts; may be null
    std::string warningCaption; ///< of the host
    HWND owner;                 ///< of the message boxes
    const SpectraMgr& manager;  ///< with the bands
    Layout::Mode layout;        ///< grid: the traces; scalp: all sensors of the main analysis
    GridSize grid;              ///< cells beyond it are not copied
    std::span<const TraceEntry> traces;
};

/// Puts the table of the selected bands and measures on the clipboard, numbers with three decimals in the
/// user's numerals; an empty text when there is no spectrum. Without a selected band or measure it warns and
/// copies nothing. In the grid a value that cannot be had is told, once for its line, and left out.
/// \throws on the scalp, whatever formatting a value throws; nothing is copied then
void CopyMeasures(const CopySource& source);

} // namespace orvanta::spectrum_view
