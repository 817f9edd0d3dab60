// SPDX-License-Identifier: GPL-3.0-or-later
// Window functions ("tapers"), read from ".wnd" files.
#pragma once

#include "spectra_contract/api.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orvanta::spectral {

/// A window function as described by its file.
class ORVANTA_API Taper {
public:
    /// Reads a ".wnd" file. \throws std::runtime_error "FILE: line N: reason (remedy)"
    static Taper Load(const std::string& path);

    const std::string& Name() const { return name_; }
    /// The periodic form over n samples (a cycle of n, not n − 1). n >= 1.
    std::vector<double> Values(std::uint32_t n) const;

private:
    enum class Kind { Cosine, Triangle, Table };
    std::string name_;
    Kind kind_ = Kind::Cosine;
    std::vector<double> numbers_;
};

/// Folder of the window functions: the one set by SetTaperFolder, else the folder of the module or program.
ORVANTA_API std::string GetTaperFolder();
ORVANTA_API void SetTaperFolder(const std::string& folder);
/// Names of the window functions there, sorted without regard to case, ties by bytes.
ORVANTA_API std::vector<std::string> ListTapers();
/// The window function named \p name, case ignored. \throws std::runtime_error when there is none or it
/// cannot be read
ORVANTA_API Taper FindTaper(const std::string& name);

} // namespace orvanta::spectral
