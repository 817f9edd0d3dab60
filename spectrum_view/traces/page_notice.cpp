// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/traces/page_notice.h"

#include "host/toolkit/form_texts.h"
#include "spectra_contract/spectra_mgr.h"

#include <algorithm>

namespace orvanta::spectrum_view {

std::string PageNotice(const SpectraMgr& manager, const ViewState& view, const SPECT::FrequencyRange& range,
                       std::span<const TraceEntry> entries, const PModule* messages) {
    const SpectMacroResult* main = manager.GetMain();
    if (main == nullptr) {
        return owl::TextOr(messages, "Spectrum", "NoAnalysis",
                           "There is no analysis yet. Choose Computation Options to make one.");
    }
    if (!main->IsComputed()) {
        return owl::TextOr(messages, "Spectrum", "NotComputed",
                           "The spectra are not computed. Choose Recompute.");
    }
    const bool grid = view.layout == Layout::Mode::Grid;
    if (grid && view.grid.Cells() == 0) {
        return owl::TextOr(messages, "Spectrum", "NoCells",
                           "The grid has no cells. Choose its rows and columns.");
    }
    if (grid && main->GetNumBip() == 0) {
        return owl::TextOr(messages, "Spectrum", "NoBipolar",
                           "The grid shows bipolar channels, and this montage has none. Choose Scalp View.");
    }
    if (!grid && std::all_of(entries.begin(), entries.end(), [](const TraceEntry& entry) {
            return entry.main == nullptr || entry.rectangle.IsEmpty();
        })) {
        return owl::TextOr(messages, "Spectrum", "NoPlaces",
                           "No trace has a place on the head. Choose Grid View.");
    }
    if (!(range.top - range.bottom > 0)) {
        return owl::TextOr(messages, "Spectrum", "NoRange",
                           "The range of frequencies is empty. Choose Set Scale Axis Range.");
    }
    return {};
}

} // namespace orvanta::spectrum_view
