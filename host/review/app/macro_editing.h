// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta macro edit: a macro file, or the user's macros, in the module's forms.
#pragma once

#include "host/review/app/review_entry.h"
#include "spectra_contract/events.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_macro.h"
#include "spectra_contract/spectra_mgr.h"

#include <memory>
#include <string>

class GenericPlatform;

namespace orvanta::review {

class ModuleBridge;

/// One run of the command. Everything that can be refused is refused before a window opens.
class MacroEditing {
public:
    /// \throws cli::UsageError, signal::RecordingError
    explicit MacroEditing(const EditMacroRequest& request);

    /// Shows the form until the user closes it.
    /// \return what happened to which file, for standard output; empty when there is nothing to say
    /// \throws cli::UsageError when a file could not be written
    std::string Run(ModuleBridge& bridge, const GenericPlatform& platform);

private:
    std::string file_;
    std::unique_ptr<EEGFileInfoType> recording_;
    EventsManager ownEvents_; ///< in place of a recording's
    SensorList sensors_;
    SpectraMacro macro_;

    EventsManager& Events();
    std::string EditFile(ModuleBridge& bridge);
    std::string ChooseMacro(ModuleBridge& bridge, const GenericPlatform& platform);
};

} // namespace orvanta::review
