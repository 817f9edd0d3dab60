// SPDX-License-Identifier: GPL-3.0-or-later
// What a signal's label says.
#pragma once

#include "spectra_contract/sensor.h"

#include <optional>
#include <string>
#include <string_view>

namespace orvanta::signal {

/// A label taken apart. "EEG Fp1-Ref" is electrode Fp1; "C3-M2" is C3 against M2; "FP1-F7" is the derivation
/// Fp1-F7; "Fc5." is FC5; "EEG 001" and "POL A'1" are electrodes without a standard position.
struct ParsedLabel {
    /// Short name: the electrode in standard spelling, or what the label leaves without its prefix.
    std::string name;
    /// What the electrode was recorded against: an electrode in standard spelling or a word such as "LE";
    /// empty when the label does not say or says only "Ref".
    std::string reference;
    /// Name and reference, as the trace is to be labelled.
    std::string full;
    /// What the label says the signal is; nothing when it says nothing.
    std::optional<Sensor::Type> type;

    /// The name is that of an electrode.
    bool known = false;
    /// The electrode has a standard position.
    bool placed = false;
    /// Both name and reference are electrodes on the scalp.
    bool pair = false;
};

ORVANTA_API ParsedLabel ParseLabel(std::string_view label);

/// A label's letters (and apostrophe) and the number that follows them, for rows of contacts ("LA12").
struct Contact {
    std::string stem;
    unsigned number = 0;
};
/// Nothing when the name is not letters and then a number from 0 to 999.
ORVANTA_API std::optional<Contact> ParseContact(std::string_view name);

} // namespace orvanta::signal
