// SPDX-License-Identifier: GPL-3.0-or-later
// The words by which labels tell what a signal is.
#pragma once

#include "spectra_contract/sensor.h"

#include <optional>
#include <string_view>

namespace orvanta::signal {

/// What the words of a label, in lower case, say about the signal's kind; nothing when no word is known.
std::optional<Sensor::Type> TypeOfWords(std::string_view lowerCaseLabel);

} // namespace orvanta::signal
