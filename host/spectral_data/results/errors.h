// SPDX-License-Identifier: GPL-3.0-or-later
// Why an analysis was not computed.
#pragma once

#include "spectra_contract/api.h"

#include <stdexcept>
#include <string>

namespace orvanta::spectral {

/// Settings and recording leave nothing to compute: no EEG sensor, no epoch. what() reads "reason (remedy)".
class ORVANTA_API NothingComputable : public std::runtime_error {
public:
    NothingComputable(const std::string& reason, const std::string& remedy)
        : std::runtime_error(reason + " (" + remedy + ")") {}
    /// The same, said of a file.
    NothingComputable(const std::string& file, const NothingComputable& cause)
        : std::runtime_error(file + ": " + cause.what()) {}
};

} // namespace orvanta::spectral
