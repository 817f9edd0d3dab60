// SPDX-License-Identifier: GPL-3.0-or-later
// The view's spectra in a file, and the statistics program on it.
#include "host/toolkit/form_texts.h"
#include "host/toolkit/modal_gateway.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/dialogs/comments_dialog.h"
#include "spectrum_view/saving/save_folder.h"
#include "spectrum_view/saving/spectra_file_name.h"
#include "spectrum_view/saving/statistics_launch.h"
#include "spectrum_view/spectrum.h"

using namespace orvanta::spectrum_view;

std::string Spectrum::SaveSpectraFile() {
    owl::ModalGateway& user = owl::CurrentModalGateway();
    const SpectMacroResult* main = manager_->GetMain();
    if (main == nullptr) {
        user.ShowMessage(
            GetHandle(), owl::TextOr(GetMessages(), "Spectrum", "NoSpectra", "Unable to access Spectra"),
            owl::TextOr(GetMessages(), "Spectrum", "Error", "Error"), owl::kMbOk + owl::kMbIconExclamation);
        return {};
    }
    owl::FileQuestion question;
    question.filter = "XML Files (*.xml)|*.xml|";
    question.extension = "XML";
    question.folder = PrepareSaveFolder(*GW().GetPlatform());
    question.name = SuggestedFileName(*main, *recording_);
    const std::optional<std::string> chosen = user.AskFileToSave(GetHandle(), question);
    SpectralComments comments;
    if (!chosen || SpectralCommentsDlg(this, &comments, GW().GetPlatform()).Execute() != owl::kIdOk) {
        return {};
    }
    main = manager_->GetMain(); // the analysis may have been removed meanwhile
    if (main == nullptr) {
        return "SPECTRADATA UNAVAILABLE ERROR";
    }
    main->SaveSpectra(GW().GetPlatform(), recording_, chosen->c_str(), &comments); // tells why it failed
    return *chosen;
}

void Spectrum::CmSaveSpectra() {
    SaveSpectraFile();
}

void Spectrum::CmSaveSpectraAndLaunchStat() {
    LaunchStatistics(*GW().GetPlatform(), SaveSpectraFile());
}
