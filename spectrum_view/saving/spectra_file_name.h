// SPDX-License-Identifier: GPL-3.0-or-later
// Names of spectra files: what was analysed and how.
#pragma once

#include <string>

class EEGFileInfoType;
class SpectMacroResult;

namespace orvanta::spectrum_view {

/// Bytes that a suggested name has at the most.
inline constexpr std::size_t kSuggestedNameLimit = 258;

/// "EVENT_LABEL_WINDOW_SECONDS_OVERLAP_RECORDING.xml" of the analysis as it is set: processed events, label
/// of the recording, taper, whole seconds of the FFT length, overlap in percent, file name of the recording
/// without its extension. What is longer than kSuggestedNameLimit is cut there, at a whole character.
std::string SuggestedFileName(const SpectMacroResult& analysis, const EEGFileInfoType& recording);

/// \p folder, with its separator, and the same name of any length with the recording's file name whole.
std::string BatchFileName(const std::string& folder, const SpectMacroResult& analysis,
                          const EEGFileInfoType& recording);

} // namespace orvanta::spectrum_view
