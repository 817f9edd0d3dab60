// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/analysis_run.h"

#include "host/review/cli/event_warnings.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/macro_keys.h"
#include "host/review/cli/montage_choice.h"
#include "host/review/cli/output.h"
#include "host/review/cli/validators.h"
#include "host/review/cli/watch.h"
#include "host/signal_base/recording.h"
#include "host/spectral_data/results/comparison_of.h"
#include "host/spectral_data/results/errors.h"
#include "spectra_contract/spect_globals.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>

namespace orvanta::cli {

namespace {

const std::map<std::string, SPECT::Entity::Type> kEntities = {
    {"amplitude", SPECT::Entity::Type::Amplitude},
    {"power", SPECT::Entity::Type::Power},
    {"coherence", SPECT::Entity::Type::Coherence},
    {"phase", SPECT::Entity::Type::Phase},
};

bool NeedsPairs(SPECT::Entity::Type entity) {
    return entity == SPECT::Entity::Type::Coherence || entity == SPECT::Entity::Type::Phase;
}

bool HasPair(const MontageType& montage) {
    return std::any_of(montage.BeginChn(), montage.EndChn(),
                       [](const auto& channel) { return channel->GetElectrodes().second != nullptr; });
}

} // namespace

void AnalysisArguments::AddTo(CLI::App& command) {
    AddFileTo(command);
    command
        .add_option("--montage", montage,
                    "A montage by its name in orvanta info, \"Reference NAME\", a montage file, or FILE:NAME")
        ->type_name("NAME");
    command.add_option("--entity", entity, "power (default), amplitude, coherence or phase")
        ->transform(
            CLI::Validator(CLI::IsMember({"power", "amplitude", "coherence", "phase"}, CLI::ignore_case))
                .description(""))
        ->type_name("NAME");
    AddEffortTo(command);
}

void AnalysisArguments::AddFileTo(CLI::App& command) {
    command.add_option("FILE", file, "Recording: EDF, EDF+, BDF, BDF+, BrainVision")
        ->required()
        ->type_name("");
}

void AnalysisArguments::AddEffortTo(CLI::App& command) {
    command.add_option("--threads", threads, "Worker threads; 0 (default) for one per core")
        ->check(IsWholeIn(0, 256))
        ->type_name("N");
    command.add_option("--precision", precision, "float (default) or double")
        ->check(CLI::Validator(CLI::IsMember({"float", "double"})).description(""))
        ->type_name("NAME");
    command
        .add_option("--memory", memory_mib,
                    "Memory budget, MiB (default 1024); with a small one fewer threads work")
        ->check(IsWholeIn(16, 1 << 20))
        ->type_name("MIB");
    command.add_flag("--quiet", quiet, "Print neither progress nor results");
}

void AnalysisArguments::AddDataTo(CLI::App& command) {
    command.add_option("--json", json, "Write everything as JSON; - for standard output")
        ->type_name("OUT")
        ->check(IsNotEmpty());
    command.add_option("--csv", csv, "Write the band measures as CSV; - for standard output")
        ->type_name("OUT")
        ->check(IsNotEmpty());
}

spectral::ComputeOptions AnalysisArguments::Options() const {
    spectral::ComputeOptions options;
    options.threads = threads;
    options.precision = precision == "double" ? spectral::Precision::Double : spectral::Precision::Float;
    options.memory_bytes = std::uint64_t{memory_mib} << 20;
    options.amplitude = entity == "amplitude";
    options.cross = NeedsPairs(kEntities.at(entity));
    options.statistics = false;
    options.store_epochs = false;
    return options;
}

SpectraMacro MakeMacro(const std::string& file, const std::vector<std::string>& assignments) {
    SpectraMacro macro;
    if (!file.empty() && macro.Load(file) == 2) {
        throw UsageError(macro.GetLastError());
    }
    for (const std::string& assignment : assignments) {
        SetKey(macro, assignment);
    }
    return macro;
}

void RequireComparable(const SpectMacroResult& main, const SpectMacroResult& secondary,
                       const std::string& names) {
    if (!spectral::AreComparable(*main.GetAnalysis(), *secondary.GetAnalysis())) {
        throw spectral::NothingComputable(names + ": their bins differ, so that nothing can be compared",
                                          "give both the same fft_seconds");
    }
}

double EpochMinutes(const SpectMacroResult& analysis) {
    return static_cast<double>(analysis.GetFFTCount()) * analysis.GetMacro().GetFFTSeconds() / 60;
}

AnalysisRun::AnalysisRun(const AnalysisArguments& arguments, const DefaultMontage& defaultMontage)
    : arguments_(arguments), recording_(signal::OpenRecording(arguments.file)),
      manager_(std::make_unique<SpectraMgr>(recording_.get(), nullptr)) {
    const std::string montage = !arguments.montage.empty() ? arguments.montage
                                : defaultMontage           ? defaultMontage(*recording_)
                                                           : std::string();
    if (!montage.empty()) {
        ChooseMontage(*recording_, montage);
    }
    const SPECT::Entity::Type entity = kEntities.at(arguments.entity);
    manager_->SetMeasEntity(entity);
    if (NeedsPairs(entity) && !HasPair(recording_->GetTraceInfo()->GetMtg())) {
        throw spectral::NothingComputable(arguments.file + ": " + arguments.entity +
                                              " needs channels of two electrodes, and this montage has none",
                                          "choose a bipolar one with --montage");
    }
}

std::vector<std::string> AnalysisRun::Inputs(const std::vector<std::string>& macroFiles) const {
    std::vector<std::string> inputs = recording_->GetRecording()->Data().files;
    for (const std::string& file : macroFiles) {
        inputs.push_back(file);
    }
    inputs.push_back(MontageFileOf(*recording_, arguments_.montage));
    std::erase(inputs, "");
    return inputs;
}

SpectMacroResult& AnalysisRun::Compute(const SpectraMacro& macro, const std::string& macroFile,
                                       const spectral::ComputeOptions& options, const std::string& title) {
    WarnOfLabels(macro, *recording_->GetEventsManager());
    auto analysis = std::make_unique<SpectMacroResult>(macro, recording_.get(), nullptr);
    analysis->SetComputeOptions(options);
    // Numbers on the terminal and progress would run into each other.
    const bool quiet = arguments_.quiet || arguments_.json == "-" || arguments_.csv == "-";
    Watch watch(title, recording_->GetRecording()->Time().Duration() / 60, quiet);
    try {
        if (!analysis->Compute(&watch)) {
            throw Interrupted();
        }
    } catch (const spectral::NothingComputable& cause) {
        throw spectral::NothingComputable(
            macroFile.empty() ? arguments_.file : arguments_.file + " with " + macroFile, cause);
    }
    manager_->push_back(analysis.get());
    return *analysis.release();
}

} // namespace orvanta::cli
