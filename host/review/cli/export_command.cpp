// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta export: the spectra of single epochs as text.
#include "host/review/cli/analysis_run.h"
#include "host/review/cli/commands.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/output.h"
#include "host/review/cli/validators.h"
#include "host/review/cli/watch.h"
#include "host/spectral_data/results/errors.h"
#include "spectra_contract/spectra_export.h"

#include <CLI/CLI.hpp>

namespace orvanta::cli {

namespace {

struct ExportArguments : AnalysisArguments {
    std::vector<std::string> macros; ///< the first names the columns
    std::string out;
    bool noHeader = false, noContrast = false, noName = false;
};

/// Computes the analyses without keeping their epochs, which are computed again one block after the other:
/// memory stays small however long the recording is.
SpectraExport ComputeAll(const ExportArguments& arguments, const std::vector<SpectraMacro>& macros,
                         AnalysisRun& run) {
    spectral::ComputeOptions options = arguments.Options();
    options.channels = false;
    SpectraExport what{nullptr, {}, !arguments.noHeader, !arguments.noContrast, !arguments.noName};
    for (std::size_t i = 0; i < macros.size(); ++i) {
        const SpectMacroResult& analysis = run.Compute(macros[i], arguments.macros[i], options,
                                                       "Computing analysis " + std::to_string(i + 1) +
                                                           " of " + std::to_string(macros.size()));
        what.analyses.push_back(&analysis);
        what.columns = what.analyses.front();
        if (analysis.GetFFTResolution() != what.columns->GetFFTResolution()) {
            throw spectral::NothingComputable(arguments.macros[0] + " and " + arguments.macros[i] +
                                                  ": their bins differ, so that they share no columns",
                                              "give both the same fft_seconds, or export them one by one");
        }
    }
    return what;
}

std::string Summary(const ExportArguments& arguments, const SpectraExport& what) {
    std::string text;
    for (std::size_t i = 0; i < what.analyses.size(); ++i) {
        text += arguments.macros[i] + ": " + Counted(what.analyses[i]->GetFFTCount(), "epoch") + "\n";
    }
    return text + arguments.out + ": " + Counted(what.columns->GetSensors().size(), "sensor") + ", " +
           std::to_string(what.columns->GetFFTSamples()) + " FFT samples\n";
}

int Export(const ExportArguments& arguments) {
    std::vector<SpectraMacro> macros;
    for (const std::string& file : arguments.macros) {
        macros.push_back(MakeMacro(file, {}));
    }
    AnalysisRun run(arguments);
    CheckOutputs({{"--out", arguments.out}}, run.Inputs(arguments.macros));
    const SpectraExport what = ComputeAll(arguments, macros, run);
    {
        double minutes = 0;
        for (const SpectMacroResult* analysis : what.analyses) {
            minutes += EpochMinutes(*analysis);
        }
        Watch watch("Exporting spectra", minutes, arguments.quiet);
        if (!WriteSpectraExport(arguments.out, what, &watch)) {
            throw Interrupted();
        }
    }
    if (!arguments.quiet) {
        WriteOutput("-", Summary(arguments, what));
    }
    return kDone;
}

} // namespace

void AddExport(CLI::App& app, Command& run) {
    auto arguments = std::make_shared<ExportArguments>();
    CLI::App* command =
        app.add_subcommand("export", "Write the spectrum of every epoch as text, for statistics");
    arguments->AddFileTo(*command);
    command
        ->add_option("--macro", arguments->macros, "Settings of an analysis; one file or several, repeatable")
        ->type_name("M.smx")
        ->check(IsNotEmpty())
        ->required();
    command->add_option("--out", arguments->out, "The text file")
        ->type_name("F.txt")
        ->check(NamesAFile())
        ->required();
    command->add_flag("--no-header", arguments->noHeader, "No first line that names the columns");
    command->add_flag("--no-contrast", arguments->noContrast, "No column with the contrast value");
    command->add_flag("--no-name", arguments->noName, "No column with the name of the macro");
    command->add_option("--entity", arguments->entity, "power (default) or amplitude")
        ->transform(CLI::Validator(CLI::IsMember({"power", "amplitude"}, CLI::ignore_case)).description(""))
        ->type_name("NAME");
    arguments->AddEffortTo(*command);
    command->footer(
        "A line per epoch, analysis after analysis: name, contrast value, then the bins of every EEG "
        "sensor but the first and the last. A tab follows every field, also the last of a line.");
    command->callback([&run, arguments] { run = [arguments] { return Export(*arguments); }; });
}

} // namespace orvanta::cli
