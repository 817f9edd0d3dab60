// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/traces/page_notice.h"

#include "host/toolkit/form_texts.h"
#include "spectra_contract/spectra_mgr.h"

#include <algorithm>
#include <cmath>

namespace orvanta::spectrum_view {

namespace {

bool HasValue(const TraceEntry& entry) {
    std::vector<double> values;
    if (entry.main != nullptr) {
        entry.main->GetSpect(values);
    }
    return std::any_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); });
}

/// Why coherence or phase shows nothing; empty when it does.
std::string CoherenceNotice(SPECT::Data::Mode mode, std::span<const TraceEntry> entries,
                            const PModule* messages) {
    if (mode != SPECT::Data::Mode::Mean) {
        return owl::TextOr(messages, "Spectrum", "NotOverTime",
                           "A single epoch has no coherence and no phase. Choose Mean.");
    }
    if (std::none_of(entries.begin(), entries.end(), HasValue)) {
        return owl::TextOr(messages, "Spectrum", "NoCoherence",
                           "Coherence and phase need two electrodes and more than one epoch.");
    }
    return {};
}

} // namespace

std::string PageNotice(const SpectraMgr& manager, const ViewState& view, const DisplaySettings& display,
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
    if (!(display.range.top - display.range.bottom > 0)) {
        return owl::TextOr(messages, "Spectrum", "NoRange",
                           "The range of frequencies is empty. Choose Set Scale Axis Range.");
    }
    const SPECT::Entity::Type entity = manager.GetMeasEntity();
    if (entity == SPECT::Entity::Type::Coherence || entity == SPECT::Entity::Type::Phase) {
        return CoherenceNotice(display.mode, entries, messages);
    }
    return {};
}

} // namespace orvanta::spectrum_view
