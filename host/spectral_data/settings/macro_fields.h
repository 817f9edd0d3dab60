// SPDX-License-Identifier: GPL-3.0-or-later
// The settings of an analysis as named texts, for macro files and spectra files.
#pragma once

#include "spectra_contract/api.h"
#include "spectra_contract/spectra_macro.h"

#include <set>
#include <span>
#include <string>
#include <string_view>

namespace orvanta::spectral {

/// One field. A scalar has `get` and `set`, a list of event labels `get_list` and `set_list`; the other two
/// are null. `set` throws std::invalid_argument, whose text names the values that are allowed, and then
/// changes nothing.
struct MacroField {
    const char* key;
    std::string (*get)(const SpectraMacro&);
    void (*set)(SpectraMacro&, std::string_view text);
    std::set<std::string> (*get_list)(const SpectraMacro&);
    void (*set_list)(SpectraMacro&, const std::set<std::string>&);

    bool IsList() const { return get_list != nullptr; }
};

/// All fields in the order in which they are written: fft_seconds, overlap, window, mode (all, duration,
/// states, spots), duration, states, spots, reject, pre_trigger_ms, trigger_duration_ms, spot_steps,
/// spot_step_ms, epochs_mode (all, first, random), epochs_count, contrast, color (0x00BBGGRR).
ORVANTA_API std::span<const MacroField> MacroFields();

} // namespace orvanta::spectral
