// SPDX-License-Identifier: GPL-3.0-or-later
// What is wrong with montages that are being typed.
#pragma once

#include "host/review/app/montage/montage_folder.h"

#include <QString>

#include <cstddef>

class TraceInfoType;

namespace orvanta::review {

struct MontageProblem {
    QString text;         ///< empty when all is well
    std::size_t line = 0; ///< counted from 1; 0 for none in particular

    bool operator==(const MontageProblem&) const = default;
};

/// Why the draft at \p at cannot be stored: its name, which must be fit for a file and unlike the others
/// (case ignored), or a line of its text.
MontageProblem WhyNotStored(const std::vector<MontageFile>& drafts, std::size_t at);

/// Why a draft that can be stored is not offered, or not all of it, for a recording with these sensors.
MontageProblem WhyNotOffered(const MontageFile& draft, const TraceInfoType& sensors);

/// "Montage 1", or with the first number that no draft has.
std::string FreeName(const std::vector<MontageFile>& drafts);

} // namespace orvanta::review
