// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta compute: one analysis of one recording.
#include "host/platform/console_gui.h"
#include "host/platform/host_platform.h"
#include "host/review/cli/analysis_run.h"
#include "host/review/cli/commands.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/macro_keys.h"
#include "host/review/cli/output.h"
#include "host/review/cli/report.h"
#include "host/review/cli/validators.h"

#include <CLI/CLI.hpp>

#include <iostream>

namespace orvanta::cli {

namespace {

struct ComputeArguments : AnalysisArguments {
    std::string macro;
    std::vector<std::string> assignments;
    std::string spectra;
};

/// Events that are labelled bad and not left out are worth a word: people expect them gone. The setting that
/// is named keeps what is left out already, since it replaces the whole list.
std::string RejectHint(const EEGFileInfoType& recording, SpectraMacro macro) {
    std::set<std::string> labels = macro.GetRejectEventsList();
    const std::size_t before = labels.size();
    for (const std::string& label : recording.GetEventsManager()->GetDefaultRejectLabels()) {
        labels.insert(label);
    }
    if (labels.size() == before) {
        return "";
    }
    macro.SetRejectEventsList(labels);
    std::string hint = "Events labelled bad are included; leave them out with --set \"";
    return hint.append(KeyToText(macro, "reject")).append("\"\n");
}

int Compute(const ComputeArguments& arguments) {
    const SpectraMacro macro = MakeMacro(arguments.macro, arguments.assignments);
    AnalysisRun run(arguments);
    CheckOutputs({{"--json", arguments.json}, {"--csv", arguments.csv}, {"--spectra", arguments.spectra}},
                 run.Inputs({arguments.macro}));
    const SpectMacroResult& analysis =
        run.Compute(macro, arguments.macro, arguments.Options(), "Computing spectra");

    if (!arguments.json.empty()) {
        WriteOutput(arguments.json, ToJson(run.Recording(), run.Manager(), analysis, {}).Text() += "\n");
    }
    if (!arguments.csv.empty()) {
        WriteOutput(arguments.csv, ToCsv(run.Manager(), analysis));
    }
    if (!arguments.spectra.empty()) {
        const platform::ConsoleGui gui(std::cerr, {});
        platform::HostPlatform platform(gui);
        if (!analysis.SaveSpectra(&platform, &run.Recording(), arguments.spectra.c_str(), nullptr)) {
            return kRefused;
        }
    }
    if (!arguments.quiet && arguments.json != "-" && arguments.csv != "-") {
        const std::string text = Heading(run.Recording(), analysis) + RejectHint(run.Recording(), macro) +
                                 "\n" + MeasuresTable(run.Manager(), analysis);
        WriteOutput("-", text);
    }
    return kDone;
}

} // namespace

void AddCompute(CLI::App& app, Command& run) {
    auto arguments = std::make_shared<ComputeArguments>();
    CLI::App* command =
        app.add_subcommand("compute", "Compute the spectra of a recording and measure their bands");
    arguments->AddTo(*command);
    arguments->AddDataTo(*command);
    command->add_option("--macro", arguments->macro, "Settings from a macro file")->type_name("M.smx");
    command->add_option("--set", arguments->assignments, "Change one setting, repeatable")
        ->type_name("KEY=VALUE")
        ->allow_extra_args(false);
    command->add_option("--spectra", arguments->spectra, "Write the spectra file (XML)")
        ->type_name("OUT.xml")
        ->check(NamesAFile());
    command->footer(KeyHelp());
    command->callback([&run, arguments] { run = [arguments] { return Compute(*arguments); }; });
}

} // namespace orvanta::cli
