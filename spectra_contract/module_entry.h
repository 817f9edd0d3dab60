// SPDX-License-Identifier: GPL-3.0-or-later
// The two functions with which the host, and the module's own views, ask for an analysis.
#pragma once

#include "host/toolkit/window_handle.h"
#include "spectra_contract/api.h"

#include <cstdint>

class EEGFileInfoType;
class GenericPlatform;
class SpectMacroResult;
class SpectraMgr;

/// Lets the user choose the settings of a new analysis of the recording and appends it, not yet computed, to
/// the manager. GUI thread. The manager owns the new analysis. Exceptions of the library or the form pass
/// through. \return 1 appended, 2 chosen by hand (nothing appended), -2 cancelled
ORVANTA_API std::int32_t CreateNewSpectrum(const GenericPlatform* platform, HWND parent, SpectraMgr& manager,
                                           EEGFileInfoType* recording);

/// Computes one analysis under a wait cursor. GUI thread, blocking. Failures are told through the platform's
/// GUI. \param parent not used \return 0, always
ORVANTA_API std::int32_t PerformComputation(const GenericPlatform* platform, HWND parent,
                                            SpectMacroResult* analysis, EEGFileInfoType* recording);
