// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/map_choice.h"

#include "host/review/cli/exit_status.h"
#include "host/spectral_data/results/names.h"
#include "spectra_contract/spect_globals.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace orvanta::cli {

namespace {

struct Entry {
    int index;
    std::string name;
};

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(
        a, b, [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

std::optional<int> IndexOf(const std::vector<Entry>& entries, std::string_view wanted) {
    for (const Entry& entry : entries) {
        if (!entry.name.empty() && EqualsIgnoringCase(entry.name, wanted)) {
            return entry.index;
        }
    }
    int number = -1;
    const char* end = wanted.data() + wanted.size();
    const auto [stop, error] = std::from_chars(wanted.data(), end, number);
    const bool known =
        error == std::errc() && stop == end &&
        std::ranges::any_of(entries, [&](const Entry& entry) { return entry.index == number; });
    return known ? std::optional(number) : std::nullopt;
}

int RequiredIndex(const std::vector<Entry>& entries, const std::string& wanted, const char* kind,
                  const std::string& option) {
    if (const auto index = IndexOf(entries, wanted)) {
        return *index;
    }
    std::string names;
    for (const Entry& entry : entries) {
        names += (names.empty() ? "" : ", ") + std::to_string(entry.index) +
                 (entry.name.empty() ? "" : " " + entry.name);
    }
    throw UsageError("--map " + option + ": no " + kind + " \"" + wanted + "\" (there are " + names + ")");
}

std::vector<Entry> DefinedBands() {
    std::vector<Entry> bands;
    for (unsigned i = 0; i < SPECT::BandCount; ++i) {
        const SPECT::Band& band = SPECT::GetGlobals().Bands[i];
        if (band.IsDefined()) {
            bands.push_back({static_cast<int>(i), band.name});
        }
    }
    return bands;
}

std::vector<Entry> Measures() {
    std::vector<Entry> measures;
    measures.reserve(SPECT::Meas::Count);
    for (int i = 0; i < static_cast<int>(SPECT::Meas::Count); ++i) {
        measures.push_back({i, spectral::MeasureName(static_cast<SPECT::Meas::Type>(i))});
    }
    return measures;
}

std::optional<double> NumberOf(std::string_view text) {
    double value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

} // namespace

SPECT::PlotSet ParseMap(const std::string& text) {
    const std::size_t colon = text.rfind(':');
    if (colon == std::string::npos) {
        throw UsageError("--map " + text + ": no BAND:MEASURE (such as Alpha:Abs)");
    }
    SPECT::PlotSet map;
    map.SpectralBand = RequiredIndex(DefinedBands(), text.substr(0, colon), "band", text);
    map.SpectralMeas = RequiredIndex(Measures(), text.substr(colon + 1), "measure", text);
    return map;
}

void ParseScaleRange(const std::string& text, std::vector<SPECT::PlotSet>& maps) {
    const std::size_t colon = text.find(':');
    const auto low = NumberOf(std::string_view(text).substr(0, colon));
    const auto high =
        colon == std::string::npos ? std::nullopt : NumberOf(std::string_view(text).substr(colon + 1));
    if (!low || !high || *high <= *low) {
        throw UsageError("--scale-range " + text +
                         ": no LO:HI with the second number above the first (such "
                         "as 0:60)");
    }
    for (SPECT::PlotSet& map : maps) {
        map.bAutoScale = false;
        map.LoScale = *low;
        map.HiScale = *high;
    }
}

std::vector<SPECT::PlotSet> MapsOfAllBands() {
    std::vector<SPECT::PlotSet> maps;
    for (const Entry& band : DefinedBands()) {
        maps.push_back({});
        maps.back().SpectralBand = band.index;
    }
    return maps;
}

} // namespace orvanta::cli
