// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/dialogs/info_text.h"

#include "spectra_contract/spect_macro_result.h"

#include <sstream>

namespace orvanta::spectrum_view {

std::string InfoText(const SpectMacroResult* result) {
    const std::list<std::string> epochs =
        result != nullptr ? result->GetFFTIntervalList() : std::list<std::string>();
    if (epochs.empty()) {
        return {};
    }
    const SpectraMacro& macro = result->GetMacro();
    std::ostringstream text;
    text << "FFT Computation Parameters:\r\n"
         << "\tSeconds: " << macro.GetFFTSeconds() << "\r\n"
         << "\tSamples: " << result->GetFFTSamples() << "\r\n"
         << "\tResolution: " << result->GetFFTResolution() << " Hz\r\n"
         << "\tOverlap: " << macro.GetOverlapPerc() << " %\r\n"
         << "\tWindow: " << macro.GetDSPWindowStr() << "\r\n"
         << "\r\n"
         << "FFT selected epochs:\r\n"
         << "Index\tBegin         \tEnd";
    std::size_t index = 0;
    for (const std::string& epoch : epochs) {
        text << "\r\n" << ++index << '\t' << epoch;
    }
    text << "\r\n";
    return text.str();
}

} // namespace orvanta::spectrum_view
