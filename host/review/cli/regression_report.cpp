// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/regression_report.h"

#include "host/review/cli/output.h"
#include "host/review/cli/report.h"
#include "spectra_contract/sensor.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <initializer_list>
#include <vector>

namespace orvanta::cli {

namespace {

constexpr std::size_t kShown = 10;

std::vector<const BCIReg*> StrongestFirst(const std::list<BCIReg>& results) {
    std::vector<const BCIReg*> rows;
    for (const BCIReg& row : results) {
        rows.push_back(&row);
    }
    std::ranges::stable_sort(rows, std::greater(),
                             [](const BCIReg* row) { return std::isnan(row->R) ? -1 : std::abs(row->R); });
    return rows;
}

} // namespace

std::string ToText(const EEGFileInfoType& recording, const std::list<SpectMacroResult*>& analyses,
                   const std::list<BCIReg>& results) {
    std::string text = Heading(recording, *analyses.front());
    for (const SpectMacroResult* analysis : analyses) {
        text += analysis->GetName() + ": contrast value " +
                std::to_string(analysis->GetMacro().GetContrastValue()) + ", " +
                Counted(analysis->GetFFTCount(), "epoch") + "\n";
    }
    const std::vector<const BCIReg*> rows = StrongestFirst(results);
    const std::size_t shown = std::min(kShown, rows.size());
    text += "\nThe strongest " + std::to_string(shown) + " of " + std::to_string(rows.size()) +
            " pairs of sensor and frequency:\n";
    const auto line = [&text](const std::string& name, std::initializer_list<std::string> cells) {
        text += Pad(name, 8);
        for (const std::string& cell : cells) {
            text += Pad(cell, -10);
        }
        text += '\n';
    };
    line("Sensor", {"Freq [Hz]", "R", "K", "M", "Count"});
    for (std::size_t i = 0; i < shown; ++i) {
        const BCIReg& row = *rows[i];
        line(row.Sensor->GetName(), {FixedText(row.FreqHz, 2), FixedText(row.R, 3), CompactText(row.K),
                                     CompactText(row.M), std::to_string(row.Count)});
    }
    return text;
}

} // namespace orvanta::cli
