// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/render/render.h"

#include "host/review/app/module_library.h"
#include "host/review/app/render/hidden_window.h"
#include "host/review/app/render/page_choice.h"
#include "host/review/app/render/render_application.h"
#include "host/review/cli/event_warnings.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/output.h"
#include "host/spectral_data/results/errors.h"

#include <algorithm>
#include <filesystem>

namespace orvanta::review {

namespace {

/// Channels that have a place on the page and a spectrum.
std::size_t ShownOf(const std::vector<DrawnPlot>& plots) {
    return static_cast<std::size_t>(std::ranges::count_if(
        plots, [](const DrawnPlot& plot) { return !plot.trace.empty() && !plot.slot.IsEmpty(); }));
}

} // namespace

Rendering::Rendering(const RenderRequest& request)
    : request_(request),
      run_(request.analysis,
           [&](const EEGFileInfoType& recording) { return DefaultMontage(request, recording); }),
      page_(PageFor(request, run_.Recording())) {
    cli::CheckOutputs({{"--out", request.out}}, run_.Inputs({request.macro, request.secondary}));
    Compute();
}

void Rendering::Compute() {
    const SpectraMacro mainMacro = cli::MakeMacro(request_.macro, request_.assignments);
    spectral::ComputeOptions options = request_.analysis.Options();
    options.store_epochs = page_.mode != SPECT::Data::Mode::Mean;
    options.statistics = !request_.secondary.empty();
    const SpectMacroResult& main =
        run_.Compute(mainMacro, request_.macro, options, "Computing the main analysis");
    if (request_.secondary.empty()) {
        return;
    }
    const SpectraMacro macro = cli::MakeMacro(request_.secondary, {});
    SpectMacroResult& secondary =
        run_.Compute(macro, request_.secondary, options, "Computing the secondary analysis");
    cli::RequireComparable(main, secondary,
                           (request_.macro.empty() ? "the default settings" : request_.macro) + " and " +
                               request_.secondary);
    cli::WarnOfSharedTime(main, secondary, run_.Recording());
    SpectraMgr& manager = run_.Manager();
    manager.SetSecondary(&secondary);
    manager.SetPThreshold(request_.pThreshold);
    manager.SetShowTTest(request_.tTest);
    manager.SetShowRatio(request_.ratio);
}

std::vector<DrawnPlot> Rendering::Draw(ModuleBridge& bridge, owl::TDC& dc) {
    HiddenWindow window;
    return bridge.DrawSpectrum(window, run_.Recording(), run_.Manager(), page_,
                               {request_.width, request_.height}, dc);
}

int RunRender(const RenderRequest& request) {
    const PictureFormat format = RequiredFormat(request.out);
    const ModuleLibrary module(LibraryFolder());
    Rendering rendering(request);
    StopWhenInterrupted();
    const RenderApplication application;
    std::vector<DrawnPlot> plots;
    const std::string contents = Encode({{request.width, request.height},
                                         request.scale,
                                         std::filesystem::path(request.analysis.file).filename(),
                                         [&](owl::TDC& dc) { plots = rendering.Draw(module.Bridge(), dc); }},
                                        format);
    const std::size_t shown = ShownOf(plots);
    if (shown == 0) {
        throw spectral::NothingComputable(request.analysis.file + ": no plot has a place on the page",
                                          "choose another --montage or --layout");
    }
    StopWhenInterrupted();
    cli::WriteOutput(request.out, contents);
    if (!request.analysis.quiet) {
        cli::WriteOutput("-", "written " + request.out + ": " + cli::Counted(shown, "plot") + "\n");
    }
    return cli::kDone;
}

} // namespace orvanta::review
