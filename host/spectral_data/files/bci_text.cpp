// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/files/bci_text.h"

#include "host/spectral_data/files/number_text.h"
#include "spectra_contract/sensor.h"
#include "spectra_contract/time.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <string_view>

namespace orvanta::spectral {

namespace {

/// Appends a name as one field: what would end it becomes a blank; one with a quote stands in quotes.
void AppendName(std::string& text, std::string_view name) {
    const bool quoted = name.find('"') != std::string_view::npos;
    if (quoted) {
        text += '"';
    }
    for (const char c : name) {
        const bool control = static_cast<unsigned char>(c) < 0x20;
        text += control ? ' ' : c;
        if (c == '"') {
            text += '"';
        }
    }
    if (quoted) {
        text += '"';
    }
}

/// Appends the shortest text that reads back to the same 32-bit number.
void AppendFloat(std::string& text, float value) {
    if (!std::isfinite(value)) {
        text += "n/a";
        return;
    }
    constexpr std::size_t kLongest = 16; // "-1.17549435e-38" has 15 characters
    const std::size_t used = text.size();
    text.resize(used + kLongest);
    char* const begin = text.data() + used;
    text.resize(used + static_cast<std::size_t>(std::to_chars(begin, begin + kLongest, value).ptr - begin));
}

} // namespace

std::string FormatBCIRegressions(const std::list<BCIReg>& results) {
    std::string text = "sensor\tfreq_hz\tr\tk\tm\tcount\n";
    for (const BCIReg& row : results) {
        AppendName(text, row.Sensor->GetName());
        for (const double number : {row.FreqHz, row.R, row.K, row.M}) {
            text += '\t';
            AppendNumber(text, number);
        }
        text += '\t' + std::to_string(row.Count) + '\n';
    }
    return text;
}

std::string FullSpectraHead(const Analysis& analysis) {
    std::string text = "analysis\tcontrast\tepoch\tbegin_s\tend_s\tsensor";
    for (std::uint32_t bin = 0; bin < analysis.Bins(); ++bin) {
        text += '\t';
        AppendNumber(text, bin * analysis.Resolution());
    }
    return text += '\n';
}

void AppendFullSpectraRow(std::string& text, const ContrastGroup& group, std::uint64_t epoch,
                          const std::string& sensor, std::span<const float> power) {
    AppendName(text, group.name);
    text += '\t' + std::to_string(group.contrast) + '\t' + std::to_string(epoch + 1);
    const XTimeInterval time = group.analysis->EpochTime(epoch);
    for (const XTime* edge : {time.GetBeginPtr(), time.GetEndPtr()}) {
        text += '\t';
        AppendNumber(text, edge->Seconds());
    }
    text += '\t';
    AppendName(text, sensor);
    for (const float value : power) {
        text += '\t';
        AppendFloat(text, value);
    }
    text += '\n';
}

} // namespace orvanta::spectral
