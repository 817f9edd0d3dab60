// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/saving/spectra_file_name.h"

#include "host/toolkit/cut_text.h"
#include "spectra_contract/file_path.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spect_macro_result.h"
#include "spectra_contract/spectra_macro.h"

namespace orvanta::spectrum_view {

namespace {

std::string Name(const SpectMacroResult& analysis, const EEGFileInfoType& recording,
                 const std::string& recordingName) {
    const SpectraMacro& macro = analysis.GetMacro();
    return macro.GetProcEventString() + '_' + recording.GetLabel() + '_' + analysis.GetDSPWindowStr() + '_' +
           std::to_string(static_cast<int>(macro.GetFFTSeconds())) + '_' +
           std::to_string(macro.GetOverlapPerc()) + '_' + recordingName + ".xml";
}

} // namespace

std::string SuggestedFileName(const SpectMacroResult& analysis, const EEGFileInfoType& recording) {
    const FilePath file(recording.GetFileNameText());
    return owl::CutAt(Name(analysis, recording, file.GetFile()), kSuggestedNameLimit);
}

std::string BatchFileName(const std::string& folder, const SpectMacroResult& analysis,
                          const EEGFileInfoType& recording) {
    return folder + Name(analysis, recording, recording.GetFileNameText());
}

} // namespace orvanta::spectrum_view
