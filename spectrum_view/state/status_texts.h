// SPDX-License-Identifier: GPL-3.0-or-later
// The texts of the view's status fields, message bar and title.
#pragma once

#include <string>

class EEGFileInfoType;
class PModule;
class SpectraMgr;

namespace orvanta::spectrum_view {

struct StatusTexts {
    std::string entity;     ///< "Power"
    std::string horizontal; ///< "Hz"
    std::string vertical;   ///< "Vert : µV²/Hz"

    bool operator==(const StatusTexts&) const = default;
};

/// \param messages may be null, here and below
StatusTexts StatusTextsOf(const SpectraMgr& manager, const PModule* messages);

/// "Analyzed: 119 epochs, 120.0 s", at most 127 bytes; empty without a main analysis.
std::string TimeIntervalText(const SpectraMgr& manager, const PModule* messages);

/// Recording, main analysis, processed time, and the p-scale of a comparison; empty without a computed
/// main analysis.
std::string TitleOf(const SpectraMgr& manager, const EEGFileInfoType& recording, const PModule* messages);

} // namespace orvanta::spectrum_view
