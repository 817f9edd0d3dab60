// SPDX-License-Identifier: GPL-3.0-or-later
// Names and units of entities and measures.
#pragma once

#include "spectra_contract/api.h"
#include "spectra_contract/spectra_types.h"

#include <string>

namespace orvanta::spectral {

/// "Amplitude", "Power", "Coherence", "Phase"; empty for any other value.
ORVANTA_API std::string EntityName(SPECT::Entity::Type entity);
/// "µV/√Hz", "µV²/Hz", "" and "rad"; empty for any other value.
ORVANTA_API std::string EntityUnit(SPECT::Entity::Type entity);
/// "Abs", "Mean", "Rel", "Peak F", "Mean F", "Peak", "SEF95", "CV"; empty for any other value.
ORVANTA_API std::string MeasureName(SPECT::Meas::Type measure);
/// Unit of a measure of the entity; empty for what has none.
ORVANTA_API std::string MeasureUnit(SPECT::Meas::Type measure, SPECT::Entity::Type entity);

} // namespace orvanta::spectral
