// SPDX-License-Identifier: GPL-3.0-or-later
// What the analysing commands have in common: arguments, the open recording, one computed analysis.
#pragma once

#include "host/spectral_data/compute_options.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_macro.h"
#include "spectra_contract/spectra_mgr.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace orvanta::cli {

struct AnalysisArguments {
    std::string file;
    std::string montage;
    std::string entity = "power";
    std::string json;
    std::string csv;
    std::string precision = "float";
    unsigned threads = 0;
    unsigned memory_mib = 1024;
    bool quiet = false;

    /// Adds the options that every analysing command takes.
    void AddTo(CLI::App& command);
    /// Adds the recording alone, and how much to spend on it: for a command that has no use for the rest.
    void AddFileTo(CLI::App& command);
    void AddEffortTo(CLI::App& command);
    /// Adds those for results as data.
    void AddDataTo(CLI::App& command);
    spectral::ComputeOptions Options() const;
};

/// A macro of a file (the defaults when empty) with assignments applied. \throws UsageError
SpectraMacro MakeMacro(const std::string& file, const std::vector<std::string>& assignments);

/// \param names of the settings of both, for the message \throws NothingComputable unless their bins agree
void RequireComparable(const SpectMacroResult& main, const SpectMacroResult& secondary,
                       const std::string& names);

/// How long the epochs of an analysis are together, for the rate of progress.
double EpochMinutes(const SpectMacroResult& analysis);

/// An open recording with its manager of analyses.
class AnalysisRun {
public:
    /// Names the montage of a recording when the arguments name none; empty for the one that it opens with.
    using DefaultMontage = std::function<std::string(const EEGFileInfoType&)>;

    /// Opens the recording, chooses montage and entity. \throws RecordingError, UsageError, NothingComputable
    explicit AnalysisRun(const AnalysisArguments& arguments, const DefaultMontage& defaultMontage = {});

    EEGFileInfoType& Recording() const { return *recording_; }
    SpectraMgr& Manager() { return *manager_; }
    /// Every file that is read, for CheckOutputs.
    std::vector<std::string> Inputs(const std::vector<std::string>& macroFiles) const;
    /// Appends an analysis with these settings and computes it, with progress on a terminal and warnings of
    /// labels that the recording does not have. \param macroFile where the settings come from, for messages;
    /// may be empty \throws NothingComputable, RecordingError, UsageError, Interrupted
    SpectMacroResult& Compute(const SpectraMacro& macro, const std::string& macroFile,
                              const spectral::ComputeOptions& options, const std::string& title);

private:
    const AnalysisArguments& arguments_;
    std::unique_ptr<EEGFileInfoType> recording_;
    std::unique_ptr<SpectraMgr> manager_;
};

} // namespace orvanta::cli
