// SPDX-License-Identifier: GPL-3.0-or-later
// Why an analysis was not computed.
#pragma once

#include "spectra_contract/api.h"

#include <exception>
#include <new>
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

/// What to tell a person of a failure: its own words, and of memory that ran out what to do.
inline std::string FailureText(const std::exception& failure) {
    const bool memory = dynamic_cast<const std::bad_alloc*>(&failure) != nullptr;
    return memory ? "not enough memory for the spectra (choose a shorter FFT window)" : failure.what();
}

} // namespace orvanta::spectral
