// SPDX-License-Identifier: GPL-3.0-or-later
// Why a file was refused.
#pragma once

#include "spectra_contract/api.h"

#include <stdexcept>
#include <string>

namespace orvanta::signal {

/// A file that cannot be opened or read: which file, why, and what to do. what() reads "FILE: reason
/// (remedy)" on one line; the reason names the place (byte, line or channel) where there is one.
class ORVANTA_API RecordingError : public std::runtime_error {
public:
    RecordingError(const std::string& file, const std::string& reason, const std::string& remedy)
        : std::runtime_error(file + ": " + reason + " (" + remedy + ")"), file_(file), reason_(reason),
          remedy_(remedy) {}

    const std::string& File() const { return file_; }
    const std::string& Reason() const { return reason_; }
    const std::string& Remedy() const { return remedy_; }

private:
    std::string file_;
    std::string reason_;
    std::string remedy_;
};

} // namespace orvanta::signal
