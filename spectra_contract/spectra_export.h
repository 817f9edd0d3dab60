// SPDX-License-Identifier: GPL-3.0-or-later
// The spectra of single epochs as text, for statistics programs.
#pragma once

#include "spectra_contract/api.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

class GenericProgress;
class SpectMacroResult;

/// What goes into a file.
struct SpectraExport {
    /// Its sensors, and for the header its bins, are the columns; null for none.
    const SpectMacroResult* columns = nullptr;
    /// The analyses whose epochs are the lines, in this order; one that is not computed has none.
    std::vector<const SpectMacroResult*> analyses;
    bool header = true;   ///< a first line that names the columns
    bool contrast = true; ///< a column with the contrast value
    bool name = true;     ///< a column with the name of the analysis
};

/// The file could not be opened for writing; nothing was done.
class ORVANTA_API ExportNotOpened : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Writes a line per epoch: name, contrast value, then for each sensor the bins 1 to N/2 - 1 of its spectrum
/// in the current measure entity, N the analysis' FFT samples. A tab follows every field, a line feed every
/// line. Numbers have 6 significant digits and a decimal point in every locale; "n/a" is not computable, and
/// a sensor that the analysis has no spectra of leaves its fields empty. Control characters in names become
/// blanks. The file comes into being when it is complete; until then, and after a failure or a cancel, what
/// had its name stays as it was. Memory does not grow with the number of epochs.
/// \param progress may be null
/// \return false when cancelled
/// \throws ExportNotOpened; std::runtime_error when writing, or reading the recording, fails
ORVANTA_API bool WriteSpectraExport(const std::string& path, const SpectraExport& what,
                                    GenericProgress* progress);

/// About how many bytes WriteSpectraExport writes.
ORVANTA_API std::uint64_t EstimateSpectraExport(const SpectraExport& what);
