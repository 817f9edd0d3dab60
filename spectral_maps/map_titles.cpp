// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectral_maps/map_titles.h"

#include "host/toolkit/cut_text.h"
#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"
#include "side_bar/measure_names.h"
#include "side_bar/texts.h"
#include "spectra_contract/spectra_mgr.h"

namespace orvanta::spectral_maps {

namespace {

constexpr std::uint16_t kShortFrom = 5;
constexpr std::size_t kMostBytes = 127;

std::string Filled(const char* key, const char* builtIn, std::initializer_list<std::string> values) {
    return side_bar::FillIn(owl::TextOr(PModule::Named("Orvanta"), "Maps", key, builtIn), values);
}

std::string BandName(const SpectraMgr& manager, const SPECT::PlotSet& plotSet) {
    return manager.GetBand(static_cast<unsigned>(plotSet.SpectralBand)).name;
}

std::string MeasureName(const SpectraMgr& manager, const SPECT::PlotSet& plotSet) {
    return side_bar::MeasureName(manager, static_cast<unsigned>(plotSet.SpectralMeas));
}

} // namespace

std::string MapTitle(const SpectraMgr& manager, const SPECT::PlotSet& plotSet, std::uint16_t across) {
    const std::string band = BandName(manager, plotSet);
    const std::string measure = MeasureName(manager, plotSet);
    return across < kShortFrom ? Filled("TitleOfMap", "Band: %s - Measure: %s", {band, measure})
                               : band + " - " + measure;
}

std::string WideTitle(const SpectraMgr& manager, const SPECT::PlotSet& plotSet) {
    return owl::CutAt(Filled("Title", "Band: %s   Measure: %s",
                             {BandName(manager, plotSet), MeasureName(manager, plotSet)}),
                      kMostBytes);
}

std::string FirstStepTitle(const std::string& time) {
    return Filled("FirstStep", "Time: %s", {time});
}

std::string StepTitle(const std::string& start, const std::string& end) {
    return Filled("Step", "%s - %s sec.", {start, end});
}

} // namespace orvanta::spectral_maps
