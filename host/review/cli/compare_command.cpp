// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta compare: two analyses of one recording against each other.
#include "host/review/cli/analysis_run.h"
#include "host/review/cli/commands.h"
#include "host/review/cli/comparison_report.h"
#include "host/review/cli/event_warnings.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/output.h"

#include <CLI/CLI.hpp>

namespace orvanta::cli {

namespace {

struct CompareArguments : AnalysisArguments {
    std::string main;
    std::string secondary;
};

int Compare(const CompareArguments& arguments) {
    const SpectraMacro mainMacro = MakeMacro(arguments.main, {});
    const SpectraMacro secondaryMacro = MakeMacro(arguments.secondary, {});
    spectral::ComputeOptions options = arguments.Options();
    options.statistics = true;

    AnalysisRun run(arguments);
    CheckOutputs({{"--json", arguments.json}, {"--csv", arguments.csv}},
                 run.Inputs({arguments.main, arguments.secondary}));
    const SpectMacroResult& main =
        run.Compute(mainMacro, arguments.main, options, "Computing the main analysis");
    const SpectMacroResult& secondary =
        run.Compute(secondaryMacro, arguments.secondary, options, "Computing the secondary analysis");
    RequireComparable(main, secondary, arguments.main + " and " + arguments.secondary);
    WarnOfSharedTime(main, secondary, run.Recording());
    const Comparison comparison{run.Recording(), run.Manager(), main, secondary};
    if (!arguments.json.empty()) {
        WriteOutput(arguments.json, ToJson(comparison).Text() += "\n");
    }
    if (!arguments.csv.empty()) {
        WriteOutput(arguments.csv, ToCsv(comparison));
    }
    if (!arguments.quiet && arguments.json != "-" && arguments.csv != "-") {
        WriteOutput("-", ToText(comparison));
    }
    return kDone;
}

} // namespace

void AddCompare(CLI::App& app, Command& run) {
    auto arguments = std::make_shared<CompareArguments>();
    CLI::App* command = app.add_subcommand("compare", "Compare two analyses of a recording");
    arguments->AddTo(*command);
    arguments->AddDataTo(*command);
    command->add_option("--main", arguments->main, "Settings of the main analysis")
        ->type_name("M.smx")
        ->required();
    command->add_option("--secondary", arguments->secondary, "Settings of the analysis it is compared with")
        ->type_name("S.smx")
        ->required();
    command->footer(
        "p is two-sided: a Welch t-test on ln power with the effective number of epochs; for coherence a "
        "z-test on its inverse hyperbolic tangent; for phase there is none. ratio is main / secondary.");
    command->callback([&run, arguments] { run = [arguments] { return Compare(*arguments); }; });
}

} // namespace orvanta::cli
