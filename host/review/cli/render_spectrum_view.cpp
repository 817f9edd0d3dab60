// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/render_views.h"
#include "host/review/cli/validators.h"

#include <tuple>

namespace orvanta::cli {

namespace {

void AddPage(CLI::App& command, review::SpectrumPage& page) {
    AddChoice(command, "--layout", "grid (default) of electrode pairs, or scalp",
              {{"grid", Layout::Mode::Grid}, {"scalp", Layout::Mode::Scalp}}, page.layout);
    AddChoice(command, "--mode", "mean (default), csa or timefreq",
              {{"mean", SPECT::Data::Mode::Mean},
               {"csa", SPECT::Data::Mode::CSA},
               {"timefreq", SPECT::Data::Mode::TimeFrequency}},
              page.mode);
    command.add_option("--bottom", page.range.bottom, "Lowest frequency shown (default 0)")
        ->check(CLI::Validator(CLI::NonNegativeNumber).description(""))
        ->type_name("HZ");
    command
        .add_option("--top", page.range.top, "Highest frequency shown (default 32, at most half the rate)")
        ->check(CLI::Validator(CLI::PositiveNumber).description(""))
        ->type_name("HZ");
    command.add_flag("--sd", page.sd, "Show the band of mean ± SD");
    for (const auto& [name, shown, what] :
         {std::tuple("--no-points", &page.points, "Hide the points"),
          std::tuple("--no-lines", &page.lines, "Hide the drop lines"),
          std::tuple("--no-labels", &page.labels, "Hide the names of the plots"),
          std::tuple("--no-axes", &page.axesText, "Hide the numbers at the axes"),
          std::tuple("--no-measures", &page.measuresBox,
                     "Hide the box of measures, shown over up to 4 plots"),
          std::tuple("--no-title", &page.title, "Hide the title, which names the patient")}) {
        command.add_flag_callback(
            name, [shown = shown] { *shown = false; }, what);
    }
}

void AddComparison(CLI::App& command, review::RenderRequest& request) {
    CLI::Option* secondary =
        command.add_option("--secondary", request.secondary, "Compare with the analysis of these settings")
            ->type_name("S.smx")
            ->check(IsNotEmpty());
    command.add_option("--p", request.pThreshold, "Mark bins with a p-value below it (default 0.05)")
        ->check(CLI::Validator(CLI::Range(0.0, 1.0)).description(""))
        ->type_name("P")
        ->needs(secondary);
    command
        .add_flag_callback(
            "--no-ttest", [&request] { request.tTest = false; }, "Mark no bins")
        ->needs(secondary);
    command.add_flag("--ratio", request.ratio, "Show main / secondary")->needs(secondary);
}

} // namespace

void AddSpectrumView(CLI::App& command, review::RenderRequest& request) {
    AddPage(command, request.page);
    AddComparison(command, request);
}

} // namespace orvanta::cli
