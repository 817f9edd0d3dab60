// SPDX-License-Identifier: GPL-3.0-or-later
// A text file of lines of fields, written as a stream.
#pragma once

#include "host/platform/atomic_file.h"
#include "spectra_contract/api.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvanta::spectral {

/// A tab follows every field, a line feed every line. Comes into being under its name with Commit; until then
/// there is a temporary file beside it. Keeps about a mebibyte in memory.
class ORVANTA_API TabFile {
public:
    /// \throws std::runtime_error as AtomicFile does; the others, too
    explicit TabFile(const std::string& path,
                     const platform::FileOperations& operations = platform::FileOperations::WithoutSync());

    /// Control characters, which would be taken for the end of the field or line, become blanks.
    void Field(std::string_view text);
    /// A field each, with 6 significant digits; "n/a" for what is not finite.
    void Numbers(std::span<const double> values);
    void EndLine();
    void Commit();

private:
    /// Room for \p size characters behind what is written.
    char* Room(std::size_t size);
    void Flush();

    platform::AtomicFile file_;
    std::vector<char> buffer_;
    std::size_t used_ = 0;
};

} // namespace orvanta::spectral
