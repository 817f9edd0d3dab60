// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/analysis_run.h"

#include "host/platform/console_gui.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/macro_keys.h"
#include "host/signal_base/recording.h"
#include "host/spectral_data/results/errors.h"
#include "spectra_contract/spect_globals.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <iostream>
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

/// Makes the montage current that an argument names: one of the list, or the first of a montage file.
void ChooseMontage(EEGFileInfoType& recording, const std::string& argument) {
    MontageList& list = *recording.GetMontageList();
    if (list.Find(argument) == nullptr && std::filesystem::exists(argument)) {
        std::size_t first = list.Size();
        for (MontageType& montage : signal::ReadMontageFile(argument, *recording.GetTraceInfo())) {
            first = std::min(first, list.Add(std::move(montage)));
        }
        recording.ChangeMntg(first, false);
        return;
    }
    for (std::size_t i = 0; i < list.Size(); ++i) {
        if (list.Get(i) == list.Find(argument)) {
            recording.ChangeMntg(i, false);
            return;
        }
    }
    std::string names;
    for (const auto& montage : list) {
        names += (names.empty() ? "\"" : ", \"") + montage->GetName() + "\"";
    }
    throw UsageError(argument + ": no such montage (one of " + names + ", or a montage file)");
}

platform::ConsoleGui MakeGui(bool quiet, double seconds) {
    platform::ConsoleGui::Options options;
    options.terminal = !quiet && platform::ConsoleGui::StandardErrorIsTerminal();
    options.work = seconds / 60;
    options.work_unit = "min";
    return {std::cerr, options};
}

bool HasPair(const MontageType& montage) {
    return std::any_of(montage.BeginChn(), montage.EndChn(),
                       [](const auto& channel) { return channel->GetElectrodes().second != nullptr; });
}

} // namespace

void AnalysisArguments::AddTo(CLI::App& command) {
    command.add_option("FILE", file, "Recording: EDF, EDF+, BDF, BDF+, BrainVision")->required();
    command.add_option("--montage", montage, "A montage's name (orvanta info lists them), or a montage file")
        ->type_name("NAME");
    command.add_option("--entity", entity, "power (default), amplitude, coherence or phase")
        ->check(CLI::Validator(CLI::IsMember({"power", "amplitude", "coherence", "phase"})).description(""))
        ->type_name("NAME");
    command.add_option("--json", json, "Write everything as JSON; - for standard output")->type_name("OUT");
    command.add_option("--csv", csv, "Write the band measures as CSV; - for standard output")
        ->type_name("OUT");
    command.add_option("--threads", threads, "Worker threads; 0 (default) for one per core")
        ->check(CLI::Validator(CLI::Range(0, 256)).description(""))
        ->type_name("N");
    command.add_option("--precision", precision, "float (default) or double")
        ->check(CLI::Validator(CLI::IsMember({"float", "double"})).description(""))
        ->type_name("NAME");
    command
        .add_option("--memory", memory_mib,
                    "Memory budget, MiB (default 1024); with a small one fewer threads work")
        ->check(CLI::Validator(CLI::Range(16u, 1u << 20)).description(""))
        ->type_name("MIB");
    command.add_flag("--quiet", quiet, "No progress and no table");
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

AnalysisRun::AnalysisRun(const AnalysisArguments& arguments)
    : arguments_(arguments), recording_(signal::OpenRecording(arguments.file)),
      manager_(std::make_unique<SpectraMgr>(recording_.get(), nullptr)) {
    if (!arguments.montage.empty()) {
        ChooseMontage(*recording_, arguments.montage);
    }
    const SPECT::Entity::Type entity = kEntities.at(arguments.entity);
    manager_->SetMeasEntity(entity);
    if (NeedsPairs(entity) && !HasPair(recording_->GetTraceInfo()->GetMtg())) {
        throw spectral::NothingComputable(arguments.file + ": " + arguments.entity +
                                              " needs channels of two electrodes, and this montage has none",
                                          "choose a bipolar one with --montage");
    }
}

SpectMacroResult& AnalysisRun::Compute(const SpectraMacro& macro, const spectral::ComputeOptions& options,
                                       const std::string& title) {
    auto analysis = std::make_unique<SpectMacroResult>(macro, recording_.get(), nullptr);
    analysis->SetComputeOptions(options);
    const platform::ConsoleGui gui = MakeGui(arguments_.quiet, recording_->GetRecording()->Time().Duration());
    const std::unique_ptr<GenericProgress> progress = gui.CreateProgress(title);
    try {
        analysis->Compute(progress.get());
    } catch (const spectral::NothingComputable& cause) {
        throw spectral::NothingComputable(arguments_.file, cause);
    }
    manager_->push_back(analysis.get());
    return *analysis.release();
}

} // namespace orvanta::cli
