// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/measures/clipboard_table.h"

#include "spectra_contract/spect_globals.h"
#include "spectra_contract/spectra_mgr.h"

namespace orvanta::spectrum_view {

namespace {

constexpr const char* kFieldEnd = "\t";
constexpr const char* kLineEnd = "\r\n";

void AddValues(std::string& line, const SpectrumSingle& spectrum, int band,
               const std::vector<TableKey>& measures, const FormatNumber& format) {
    for (const TableKey& measure : measures) {
        const std::string value =
            format(spectrum.GetMeasure(band, static_cast<SPECT::Meas::Type>(measure.index)));
        line += kFieldEnd + value;
    }
}

} // namespace

TableChoice SelectedForTable(const SpectraMgr& manager) {
    TableChoice choice;
    for (unsigned i = 0; i < SPECT::BandCount; ++i) {
        const SPECT::Band& band = manager.GetBand(i);
        if (band.selected) {
            choice.bands.push_back({static_cast<int>(i), band.name});
        }
    }
    for (unsigned i = 0; i < SPECT::Meas::Count; ++i) {
        if (SPECT::GetGlobals().MeasSelected[i]) {
            choice.measures.push_back({static_cast<int>(i), manager.GetBandMeasName(i)});
        }
    }
    return choice;
}

std::string MeasuresTable(const std::vector<NamedSpectrum>& traces, const TableChoice& choice,
                          const FormatNumber& format, const std::function<void()>& tellFailure) {
    std::string table;
    for (const auto& [name, spectrum] : traces) {
        table += name;
        for (const TableKey& measure : choice.measures) {
            table += kFieldEnd + measure.name;
        }
        table += kLineEnd;
        for (const TableKey& band : choice.bands) {
            table += band.name;
            try {
                AddValues(table, *spectrum, band.index, choice.measures, format);
            } catch (...) {
                if (!tellFailure) {
                    throw;
                }
                tellFailure();
            }
            table += kLineEnd;
        }
        table += kLineEnd;
    }
    return table;
}

} // namespace orvanta::spectrum_view
