// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/measures/measures_boxes.h"

#include "side_bar/measure_names.h"
#include "spectra_contract/spectra_mgr.h"

namespace orvanta::spectrum_view {

namespace {

bool HasBoxes(const PlotSources& sources) {
    constexpr std::uint64_t kMost = 2;
    const GridSize& grid = sources.view.grid;
    return sources.display.showMeasuresBox && sources.view.layout == Layout::Mode::Grid &&
           grid.columns <= kMost && grid.rows <= kMost;
}

MeasuresRow RowOf(const SpectraMgr& manager, const SpectrumSingle& spectrum, unsigned index,
                  const FormatNumber& format) {
    const SPECT::Band& band = manager.GetBand(index);
    MeasuresRow row{band.lo, band.hi, band.name, {}};
    for (unsigned measure = 0; band.IsDefined() && measure < row.values.size(); ++measure) {
        row.values[measure] =
            format(spectrum.GetMeasure(static_cast<int>(index), static_cast<SPECT::Meas::Type>(measure)));
    }
    return row;
}

} // namespace

std::optional<MeasuresBoxInput> MeasuresBoxOf(const PlotSources& sources, std::span<const TraceEntry> entries,
                                              std::size_t cell, const FormatNumber& format) {
    const TraceEntry& entry = entries[cell];
    if (entry.main == nullptr || !HasBoxes(sources)) {
        return std::nullopt;
    }
    const GridSize& grid = sources.view.grid;
    MeasuresBoxInput box{grid.columns, grid.rows, entry.rectangle, entries[0].rectangle, sources.font,
                         {},           {}};
    for (unsigned measure = 0; measure < box.measures.size(); ++measure) {
        box.measures[measure] = side_bar::MeasureName(sources.manager, measure);
    }
    for (unsigned band = 0; band < box.bands.size(); ++band) {
        box.bands[band] = RowOf(sources.manager, *entry.main, band, format);
    }
    return box;
}

} // namespace orvanta::spectrum_view
