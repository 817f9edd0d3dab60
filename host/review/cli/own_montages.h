// SPDX-License-Identifier: GPL-3.0-or-later
// The montages that the user keeps in the application.
#pragma once

#include "host/signal_base/montage/montage_file.h"
#include "spectra_contract/montage.h"

#include <string>
#include <vector>

class EEGFileInfoType;

namespace orvanta::cli {

struct OwnMontage {
    std::string file; ///< path
    signal::MontageText text;
};

/// What the folder of the user's montages holds.
struct OwnMontages {
    std::vector<OwnMontage> montages;  ///< by name, case ignored
    std::vector<std::string> problems; ///< files that cannot be read, "PATH: reason (remedy)" each

    /// The one of this name, case ignored; null without one.
    const OwnMontage* Find(const std::string& name) const;
    /// Puts those that fit the recording behind the standard ones of its list.
    void OfferTo(EEGFileInfoType& recording) const;
};

/// Those in the ".mtg" files of the application's folder for them; none when it is not there.
OwnMontages LoadOwnMontages();

/// \throws MontageError when it does not fit the recording
MontageType Made(const OwnMontage& own, const EEGFileInfoType& recording);

} // namespace orvanta::cli
