// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/known_slope.h"

#include "host/spectral_data/compute_options.h"
#include "tests/support/memory_source.h"
#include "tests/support/temp_folder.h"

#include <cmath>
#include <numbers>
#include <stdexcept>
#include <vector>

namespace orvanta::test {

namespace {

constexpr int kContrasts[] = {-1, 1, 3, 5};
constexpr std::size_t kRate = 64;
constexpr std::size_t kStateSeconds = 5;
constexpr double kHz = 10;

/// The sine whose power in its bin of 1 Hz is 10^exponent: amplitude² / 2.
double SineAt(std::size_t sample, double exponent) {
    const double phase = 2 * std::numbers::pi * kHz * static_cast<double>(sample) / double{kRate};
    return std::sqrt(2 * std::pow(10, exponent)) * std::sin(phase);
}

std::string StateOf(int contrast) {
    return "c" + std::to_string(contrast);
}

} // namespace

std::unique_ptr<EEGFileInfoType> KnownSlopeRecording(const std::string& first, const std::string& second,
                                                     const std::string& flat) {
    std::vector<double> rising;
    std::vector<double> falling;
    std::vector<signal::Annotation> states;
    for (const int contrast : kContrasts) {
        const double begin = static_cast<double>(rising.size() / kRate);
        states.push_back({begin, double{kStateSeconds}, StateOf(contrast)});
        for (std::size_t i = 0; i < kStateSeconds * kRate; ++i) {
            rising.push_back(SineAt(i, (contrast - 1) / 2.0));
            falling.push_back(SineAt(i, (3 - contrast) / 2.0));
        }
    }
    const std::vector<double> nothing(rising.size(), 0.0);
    return signal::MakeRecording(
        MakeData({{first, kRate, rising, "uV"}, {second, kRate, falling, "uV"}, {flat, kRate, nothing, "uV"}},
                 states));
}

SpectraMacro KnownSlopeMacro(int contrast) {
    SpectraMacro macro;
    macro.SetFFTSeconds(1);
    macro.SetDSPWindowStr("Rectangular");
    macro.SetOverlapPerc(0);
    macro.SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
    macro.SetAcceptStateList({StateOf(contrast)});
    macro.SetContrastValue(contrast);
    return macro;
}

SpectMacroResult* AddKnownSlope(SpectraMgr& manager, EEGFileInfoType& recording, int contrast) {
    const TempFolder folder;
    SpectraMacro macro = KnownSlopeMacro(contrast);
    if (macro.SaveAs(folder.Path(StateOf(contrast) + ".smx")) != 0) {
        throw std::runtime_error(macro.GetLastError());
    }
    auto analysis = std::make_unique<SpectMacroResult>(macro, &recording, nullptr);
    spectral::ComputeOptions options;
    options.precision = spectral::Precision::Double;
    analysis->SetComputeOptions(options);
    analysis->Compute(nullptr);
    manager.push_back(analysis.get());
    return analysis.release();
}

} // namespace orvanta::test
