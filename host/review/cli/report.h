// SPDX-License-Identifier: GPL-3.0-or-later
// A computed analysis as JSON, as CSV and as a table for people.
#pragma once

#include "host/review/cli/json_object.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"

#include <nlohmann/json_fwd.hpp>

#include <functional>
#include <string>

namespace orvanta::cli {

/// One trace of a report.
struct Trace {
    const char* kind; ///< "sensor" or "channel"
    const SpectrumSingle* spectrum;
    const SensorType* sensor; ///< null for a channel
    const ChnType* channel;   ///< null for a sensor
};

/// Calls \p visit for every sensor and then for every channel of the analysis that has a spectrum.
void ForEachTrace(const SpectMacroResult& analysis, const std::function<void(const Trace&)>& visit);

/// Calls \p visit for every measure of every defined band.
void ForEachMeasure(const SpectraMgr& manager,
                    const std::function<void(unsigned band, SPECT::Meas::Type measure)>& visit);

/// Adds keys of its own to a trace's JSON object.
using TraceExtra = std::function<void(const Trace&, JsonObject& object)>;

/// Everything about one analysis; what is not computable is null. \p extra may be empty.
JsonObject ToJson(EEGFileInfoType& recording, const SpectraMgr& manager, const SpectMacroResult& analysis,
                  const TraceExtra& extra);

/// Epochs as begin and end in seconds.
nlohmann::ordered_json EpochsToJson(const SpectMacroResult& analysis, EEGFileInfoType& recording);

/// One line per trace, band and measure: trace, kind, band, measure, value, unit.
std::string ToCsv(const SpectraMgr& manager, const SpectMacroResult& analysis);

/// What was analysed, in a few lines, for people.
std::string Heading(const EEGFileInfoType& recording, const SpectMacroResult& analysis);

/// Band measures of every trace of the montage, for people.
std::string MeasuresTable(const SpectraMgr& manager, const SpectMacroResult& analysis);

} // namespace orvanta::cli
