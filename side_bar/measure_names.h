// SPDX-License-Identifier: GPL-3.0-or-later
// Names of what is measured in the user's language. Settings, files and copied tables have the English ones.
#pragma once

#include "spectra_contract/spectra_types.h"

#include <string>

class SpectraMgr;

namespace orvanta::side_bar {

/// Of a measure of bands; as the manager names it where there is no other text.
std::string MeasureName(const SpectraMgr& manager, unsigned measure);

/// Of a measured quantity; the same.
std::string EntityName(const SpectraMgr& manager, SPECT::Entity::Type entity);

} // namespace orvanta::side_bar
