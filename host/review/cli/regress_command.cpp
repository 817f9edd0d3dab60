// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta regress: the contrast values of analyses of one recording on the power of their epochs.
#include "host/review/cli/analysis_run.h"
#include "host/review/cli/commands.h"
#include "host/review/cli/event_warnings.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/output.h"
#include "host/review/cli/regression_report.h"
#include "host/review/cli/validators.h"
#include "host/review/cli/watch.h"
#include "host/spectral_data/files/bci_text.h"
#include "host/spectral_data/files/number_text.h"
#include "host/spectral_data/results/bci_regression.h"
#include "host/spectral_data/results/errors.h"

#include <CLI/CLI.hpp>

#include <numeric>

namespace orvanta::cli {

namespace {

struct RegressArguments : AnalysisArguments {
    std::vector<std::string> macros; ///< the main analysis first
    int low = 1;                     ///< Hz
    int high = 32;
    std::string out;
    std::string fullSpectra;
};

constexpr int kHighest = 32767;

/// "a.smx, b.smx".
std::string Joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) {
        text += (text.empty() ? "" : ", ") + name;
    }
    return text;
}

void CheckArguments(const RegressArguments& arguments) {
    if (arguments.macros.size() < 2) {
        throw UsageError("--macro: a regression needs analyses of at least two contrast values (give it "
                         "once for each, the main one first)");
    }
    if (arguments.low > arguments.high) {
        throw UsageError("--low " + std::to_string(arguments.low) + ": is above --high " +
                         std::to_string(arguments.high) + " (exchange them)");
    }
}

/// What the library's code means for these arguments. \throws always
[[noreturn]] void Refuse(const RegressArguments& arguments, const SpectMacroResult& main, int code) {
    using spectral::NothingComputable;
    const std::string subject = arguments.file + " with " + Joined(arguments.macros);
    const std::string lastHz = spectral::NumberText(main.GetFFTSR() / 2);
    switch (static_cast<spectral::RegressionCode>(code)) {
    case spectral::RegressionCode::NoObservations:
        throw NothingComputable(subject + ": no epoch was computed",
                                "choose settings that leave epochs; see orvanta macro show");
    case spectral::RegressionCode::NoContrast:
        throw NothingComputable(subject + ": all epochs have the contrast value " +
                                    std::to_string(main.GetMacro().GetContrastValue()) +
                                    ", so that there is nothing to explain",
                                "give the analyses different ones, contrast in orvanta macro new --set");
    case spectral::RegressionCode::NoPredictors:
        if (GetBCISensors(main).empty()) {
            throw NothingComputable(arguments.file + ": has no EEG sensor with a known scalp position",
                                    "see the sensors in orvanta info; labels of the 10-05 system have one");
        }
        throw NothingComputable(subject + ": no bin from " + std::to_string(arguments.low) + " to " +
                                    std::to_string(arguments.high) + " Hz",
                                "bins lie " + spectral::NumberText(main.GetFFTResolution()) +
                                    " Hz apart up to " + lastHz + " Hz; widen --low and --high");
    case spectral::RegressionCode::Cancelled:
        throw Interrupted();
    case spectral::RegressionCode::ReadFailed:
        throw UsageError(arguments.file + ": epochs that were not kept could not be read again; the file " +
                         "went away or changed (bring it back, or give more --memory)");
    default:
        throw UsageError(subject + ": the regression failed with code " + std::to_string(code) +
                         " (please report it with the recording)");
    }
}

std::list<SpectMacroResult*> ComputeAll(const RegressArguments& arguments,
                                        const std::vector<SpectraMacro>& macros, AnalysisRun& run) {
    spectral::ComputeOptions options = arguments.Options();
    options.store_epochs = true;
    options.channels = false;
    // They are all kept until the end.
    options.memory_bytes /= macros.size();
    std::list<SpectMacroResult*> analyses;
    for (std::size_t i = 0; i < macros.size(); ++i) {
        SpectMacroResult& analysis = run.Compute(macros[i], arguments.macros[i], options,
                                                 "Computing analysis " + std::to_string(i + 1) + " of " +
                                                     std::to_string(macros.size()));
        for (std::size_t j = 0; SpectMacroResult * earlier : analyses) {
            if (j == 0) {
                RequireComparable(*earlier, analysis, arguments.macros[0] + " and " + arguments.macros[i]);
            }
            WarnOfSharedTime(*earlier, analysis, run.Recording(),
                             arguments.macros[j] + " and " + arguments.macros[i] +
                                 " count it with the contrast value of each");
            ++j;
        }
        analyses.push_back(&analysis);
    }
    return analyses;
}

double MinutesOf(const std::list<SpectMacroResult*>& analyses) {
    return std::accumulate(
        analyses.begin(), analyses.end(), 0.0,
        [](double minutes, const SpectMacroResult* analysis) { return minutes + EpochMinutes(*analysis); });
}

/// Saves them when they are wanted. \throws Interrupted also when they are not, but the user wants to stop
void SaveFullSpectra(const RegressArguments& arguments, bool quiet, const std::list<BCIReg>& results,
                     const std::list<SpectMacroResult*>& analyses) {
    Watch watch("Writing spectra", MinutesOf(analyses), quiet);
    if (watch.IsCancelled() || (!arguments.fullSpectra.empty() &&
                                !SaveBCIFullSpectra(arguments.fullSpectra, results, analyses, &watch))) {
        throw Interrupted();
    }
}

int Regress(const RegressArguments& arguments) {
    CheckArguments(arguments);
    std::vector<SpectraMacro> macros;
    for (const std::string& file : arguments.macros) {
        macros.push_back(MakeMacro(file, {}));
    }
    AnalysisRun run(arguments);
    CheckOutputs({{"--out", arguments.out}, {"--full-spectra", arguments.fullSpectra}},
                 run.Inputs(arguments.macros));
    const std::list<SpectMacroResult*> analyses = ComputeAll(arguments, macros, run);
    const SpectMacroResult& main = *analyses.front();

    std::list<BCIReg> results;
    const bool quiet = arguments.quiet || arguments.out == "-";
    int code = 0;
    {
        Watch watch("Fitting", MinutesOf(analyses), quiet);
        code = run.Manager().ComputeBCIRegression(analyses, results, GetBCISensors(main), arguments.low,
                                                  arguments.high, &watch);
    }
    if (code != 0) {
        Refuse(arguments, main, code);
    }
    SaveFullSpectra(arguments, quiet, results, analyses);
    WriteOutput(arguments.out, spectral::FormatBCIRegressions(results));
    if (!quiet) {
        WriteOutput("-", ToText(run.Recording(), analyses, results));
    }
    return kDone;
}

} // namespace

void AddRegress(CLI::App& app, Command& run) {
    auto arguments = std::make_shared<RegressArguments>();
    CLI::App* command =
        app.add_subcommand("regress", "Fit classes of epochs by their power, per sensor and frequency");
    arguments->AddFileTo(*command);
    command
        ->add_option("--macro", arguments->macros,
                     "Settings of an analysis, with its contrast value; the main one first, repeatable")
        ->type_name("M.smx")
        ->check(IsNotEmpty())
        ->required();
    command->add_option("--low", arguments->low, "Lowest frequency, whole (default 1)")
        ->check(IsWholeIn(0, 256))
        ->type_name("HZ");
    command->add_option("--high", arguments->high, "Highest frequency, whole (default 32)")
        ->check(IsWholeIn(1, kHighest))
        ->type_name("HZ");
    command->add_option("--out", arguments->out, "Write R, K, M and count as text; - for standard output")
        ->type_name("OUT.txt")
        ->required()
        ->check(IsNotEmpty());
    command
        ->add_option("--full-spectra", arguments->fullSpectra,
                     "Write the power of all epochs that were fitted, too")
        ->type_name("OUT.txt")
        ->check(NamesAFile());
    arguments->AddEffortTo(*command);
    command->footer("Ordinary least squares of the contrast value on log10 of the power in µV²/Hz, over the "
                    "epochs of all analyses: R correlation, K slope, M intercept. The files are tables with "
                    "tabs between the columns; docs/formats.md tells what they hold.");
    command->callback([&run, arguments] { run = [arguments] { return Regress(*arguments); }; });
}

} // namespace orvanta::cli
