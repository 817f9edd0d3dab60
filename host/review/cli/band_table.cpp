// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/band_table.h"

#include "host/review/cli/output.h"

#include <algorithm>
#include <cmath>

namespace orvanta::cli {

namespace {

constexpr int kColumn = 9;

} // namespace

std::vector<SPECT::Meas::Type> TableMeasures(SPECT::Entity::Type entity) {
    using SPECT::Meas::Type;
    return entity >= SPECT::Entity::Type::Coherence ? std::vector{Type::Mean}
                                                    : std::vector{Type::Abs, Type::Rel};
}

std::string BandTable(const SpectraMgr& manager, const SpectMacroResult& analysis,
                      const std::vector<TableBlock>& blocks) {
    std::vector<Trace> traces;
    std::size_t nameWidth = 5;
    ForEachTrace(analysis, [&](const Trace& trace) {
        if (trace.channel != nullptr) {
            traces.push_back(trace);
            nameWidth = std::max(nameWidth, trace.spectrum->GetName().size());
        }
    });
    std::vector<unsigned> bands;
    for (unsigned band = 0; band < SPECT::BandCount; ++band) {
        if (manager.GetBand(band).IsDefined()) {
            bands.push_back(band);
        }
    }

    const int width = static_cast<int>(nameWidth);
    std::string titles = Pad("", width);
    std::string names = Pad("Trace", width);
    for (const TableBlock& block : blocks) {
        titles += Pad("   " + block.title, kColumn * static_cast<int>(bands.size()));
        for (const unsigned band : bands) {
            names += Pad(manager.GetBand(band).name, -kColumn);
        }
    }
    std::string table = titles.substr(0, titles.find_last_not_of(' ') + 1) + "\n" + names + "\n";
    for (const Trace& trace : traces) {
        table += Pad(trace.spectrum->GetName(), width);
        for (const TableBlock& block : blocks) {
            for (const unsigned band : bands) {
                const double value = block.value(trace, band);
                const bool free = block.decimals == TableBlock::kSignificant || std::fabs(value) >= 1e5;
                table += Pad(' ' + (free ? CompactText(value) : FixedText(value, block.decimals)), -kColumn);
            }
        }
        table += "\n";
    }
    return table;
}

} // namespace orvanta::cli
