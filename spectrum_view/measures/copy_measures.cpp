// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/measures/copy_measures.h"

#include "host/toolkit/cut_text.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/services.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/sensor.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/measures/clipboard_table.h"

#include <algorithm>
#include <array>

namespace orvanta::spectrum_view {

namespace {

// Texts of the host.
constexpr unsigned kNoBands = 7521;
constexpr unsigned kNoMeasures = 7522;
constexpr std::size_t kLongestWarning = 127;

constexpr int kDecimals = 3;
constexpr int kNumberBuffer = 128;

void Warn(const CopySource& source, unsigned text) {
    const std::string warning = source.module != nullptr ? source.module->LoadString(text) : std::string();
    owl::CurrentModalGateway().ShowMessage(source.owner, owl::CutAt(warning, kLongestWarning),
                                           source.warningCaption, owl::kMbOk | owl::kMbIconExclamation);
}

std::vector<NamedSpectrum> OfSensors(const SpectraMgr& manager) {
    std::vector<NamedSpectrum> spectra;
    if (const SpectMacroResult* main = manager.GetMain()) {
        for (const auto& [sensor, spectrum] : main->GetSensorMap()) {
            spectra.push_back({sensor->GetName(), &spectrum});
        }
    }
    return spectra;
}

std::vector<NamedSpectrum> OfCells(const GridSize& grid, std::span<const TraceEntry> traces) {
    std::vector<NamedSpectrum> spectra;
    for (const TraceEntry& cell : traces.first(std::min<std::size_t>(grid.Cells(), traces.size()))) {
        if (cell.main != nullptr) {
            spectra.push_back({cell.main->GetName(), cell.main});
        }
    }
    return spectra;
}

std::string TableOf(const CopySource& source, const TableChoice& choice) {
    const auto format = [&source](double value) {
        std::array<char, kNumberBuffer> text{};
        source.platform.FloatToStrLoc(text.data(), kNumberBuffer, value, kDecimals);
        return std::string(text.data());
    };
    if (source.layout != Layout::Mode::Grid) {
        return MeasuresTable(OfSensors(source.manager), choice, format);
    }
    return MeasuresTable(OfCells(source.grid, source.traces), choice, format, [&source] {
        owl::CurrentModalGateway().ShowMessage(source.owner, "Exception thrown while copying values", "",
                                               owl::kMbOk);
    });
}

} // namespace

void CopyMeasures(const CopySource& source) {
    const TableChoice choice = SelectedForTable(source.manager);
    if (choice.bands.empty()) {
        Warn(source, kNoBands);
    } else if (choice.measures.empty()) {
        Warn(source, kNoMeasures);
    } else {
        owl::CurrentServices().clipboard->SetText(TableOf(source, choice));
    }
}

} // namespace orvanta::spectrum_view
