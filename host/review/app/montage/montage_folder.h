// SPDX-License-Identifier: GPL-3.0-or-later
// The user's montages: text files in a folder of the application.
#pragma once

#include <string>
#include <vector>

class EEGFileInfoType;

namespace orvanta::review {

/// A file, which mostly holds one montage of its name.
struct MontageFile {
    std::string name; ///< without folder and extension
    std::string text;

    bool operator==(const MontageFile&) const = default;
};

/// What a folder holds.
struct MontageFiles {
    std::vector<MontageFile> files; ///< in alphabetical order
    /// Files that cannot be read, "PATH: reason (remedy)" each.
    std::vector<std::string> problems;
};

/// Folder of the user's montages among those of the application.
constexpr const char* kMontageFolder = "MONTAGE";

/// \param folder with the separator at its end; one that is not there is empty
MontageFiles LoadMontageFiles(const std::string& folder);

/// Makes the folder hold \p wanted where it held \p stored; other files in it stay. Each file is replaced as
/// a whole, and old ones go last.
/// \param stored becomes what is there, also after a failure
/// \throws std::runtime_error "PATH: reason (remedy)"
void StoreMontageFiles(const std::string& folder, std::vector<MontageFile>& stored,
                       const std::vector<MontageFile>& wanted);

/// Offers the recording all montages of the files that fit its electrodes, in place of the user montages that
/// it offered before, and tells so. One that was in use and is gone gives way to the recording as it is.
/// \return why a file holds no montages, "NAME: reason (remedy)" each
std::vector<std::string> OfferMontages(EEGFileInfoType& recording, const std::vector<MontageFile>& files);

} // namespace orvanta::review
