// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/render/page_choice.h"

#include "host/review/app/render/page_grid.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/output.h"
#include "host/spectral_data/results/errors.h"
#include "spectra_contract/recording.h"

#include <algorithm>

namespace orvanta::review {

namespace {

bool IsOfPairs(const RenderRequest& request) {
    return request.analysis.entity == "coherence" || request.analysis.entity == "phase";
}

[[noreturn]] void RefuseMontage(const std::string& file, const std::string& reason,
                                const std::string& remedy) {
    throw spectral::NothingComputable(file + ": " + reason, remedy);
}

void CheckMontage(const RenderRequest& request, const MontageType& montage) {
    const std::string name = "the montage \"" + montage.GetName() + "\"";
    if (request.page.layout == Layout::Mode::Grid && montage.GetNumBip() == 0) {
        RefuseMontage(request.analysis.file, "the grid shows pairs of electrodes, and " + name + " has none",
                      "choose a bipolar --montage, or --layout scalp");
    }
    if (request.page.layout == Layout::Mode::Scalp && !montage.IsMappable()) {
        RefuseMontage(request.analysis.file,
                      "the scalp shows one plot for each electrode, and " + name +
                          " has none that is one electrode's",
                      "choose a referential --montage, or --layout grid");
    }
}

void CheckMode(const RenderRequest& request) {
    if (IsOfPairs(request) && request.page.mode != SPECT::Data::Mode::Mean) {
        throw cli::UsageError(
            "--mode: " + request.analysis.entity +
            " is computed over all epochs and has no course over time (choose --mode mean)");
    }
}

void CheckRange(const SPECT::FrequencyRange& range, double rate) {
    if (!(range.bottom < range.top)) {
        throw cli::UsageError("--bottom " + cli::CompactText(range.bottom) + " and --top " +
                              cli::CompactText(range.top) + " Hz: no range (let the top be the higher one)");
    }
    if (!(range.bottom < rate / 2)) {
        throw cli::UsageError("--bottom " + cli::CompactText(range.bottom) +
                              " Hz: above half the recording's rate, " + cli::CompactText(rate / 2) +
                              " Hz (choose a lower one)");
    }
}

} // namespace

std::string DefaultMontage(const RenderRequest& request, const EEGFileInfoType& recording) {
    const MontageList& list = *recording.GetMontageList();
    if (request.page.layout == Layout::Mode::Scalp) {
        return (IsOfPairs(request) ? list.GetRefMtg() : list.GetUniMtg())->GetName();
    }
    const auto bipolar =
        std::find_if(list.begin(), list.end(), [](const auto& montage) { return montage->GetNumBip() > 0; });
    if (bipolar == list.end()) {
        RefuseMontage(request.analysis.file,
                      "the grid shows pairs of electrodes, and no montage of this recording has any",
                      "write a montage file for --montage, or choose --layout scalp");
    }
    return (*bipolar)->GetName();
}

SpectrumPage PageFor(const RenderRequest& request, const EEGFileInfoType& recording) {
    const MontageType& montage = recording.GetTraceInfo()->GetMtg();
    CheckMode(request);
    CheckRange(request.page.range, recording.GetTraceCursor()->GetMemDataSR());
    CheckMontage(request, montage);
    SpectrumPage page = request.page;
    FillGrid(std::max(1, static_cast<int>(montage.GetNumTraces())), page.rows, page.columns);
    return page;
}

} // namespace orvanta::review
