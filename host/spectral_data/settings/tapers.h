// SPDX-License-Identifier: GPL-3.0-or-later
// Window functions ("tapers"), read from ".wnd" files.
#pragma once

#include "spectra_contract/api.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orvanta::spectral {

/// A window function as described by its file.
///
/// The file is text of lines "key=value"; blank lines and lines that start with "#" do not count.
/// - kind=cosine with coefficients=a0 a1 … (at most 32): w[i] = Σ_k (−1)^k·a_k·cos(2πki/n)
/// - kind=triangle: w[i] = 1 − |2i − n|/m, m = n + 2 for even and n + 1 for odd n (no zero at the ends)
/// - kind=table with values=v0 v1 … (2 to 65536; further lines "values=" go on): one cycle, linear between
///   the values, from the last on to the first
class ORVANTA_API Taper {
public:
    /// Reads a ".wnd" file. \throws std::runtime_error "FILE: line N: reason (remedy)"
    static Taper Load(const std::string& path);
    /// Reads the content of a ".wnd" file. \param file path, for the name and for messages \throws as Load
    static Taper Parse(const std::string& file, std::string_view content);

    /// The file's name without folder and extension.
    const std::string& Name() const { return name_; }
    /// The periodic form over n samples (a cycle of n, not n − 1); a single sample is 1. The shipped ones
    /// equal SciPy's get_window(…, n): boxcar, hamming, hann, triang, blackman, blackmanharris, flattop.
    std::vector<double> Values(std::uint32_t n) const;

private:
    friend class TaperReader;
    enum class Kind { Cosine, Triangle, Table };
    std::string name_;
    Kind kind_ = Kind::Cosine;
    std::vector<double> numbers_;
};

/// Folder of the window functions, with trailing separator: the one set by SetTaperFolder, else the folder of
/// the spectral data library, beside which the module and the programs keep them.
ORVANTA_API std::string GetTaperFolder();
/// An empty text asks for the default again. Not to be called while others use the window functions.
ORVANTA_API void SetTaperFolder(const std::string& folder);
/// Names of the window functions there, sorted without regard to case, ties by bytes. Empty when the folder
/// cannot be read.
ORVANTA_API std::vector<std::string> ListTapers();
/// The window function named \p name, case ignored; of several that differ in case only the one written like
/// \p name, else the first. \throws std::runtime_error: 'there is no window function "NAME" (one of NAMES)',
/// or as Taper::Load
ORVANTA_API Taper FindTaper(const std::string& name);

} // namespace orvanta::spectral
