// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/measure_names.h"

#include "host/toolkit/form_texts.h"
#include "host/toolkit/message_module.h"
#include "spectra_contract/spectra_mgr.h"

#include <iterator>

namespace orvanta::side_bar {

namespace {

// By index.
constexpr const char* kMeasures[] = {"abs", "mean", "rel", "peakF", "meanF", "peak", "sef95", "cv"};
constexpr const char* kEntities[] = {"amplitude", "power", "coherence", "phase"};

std::string NameOr(const char* key, const std::string& english) {
    return owl::TextOr(PModule::Named("Orvanta"), "NAMES", key, english.c_str());
}

} // namespace

std::string MeasureName(const SpectraMgr& manager, unsigned measure) {
    const std::string english = manager.GetBandMeasName(measure);
    return measure < std::size(kMeasures) ? NameOr(kMeasures[measure], english) : english;
}

std::string EntityName(const SpectraMgr& manager, SPECT::Entity::Type entity) {
    const std::string english = manager.GetMeasEntityStr(entity);
    const auto index = static_cast<std::size_t>(entity);
    return index < std::size(kEntities) ? NameOr(kEntities[index], english) : english;
}

} // namespace orvanta::side_bar
