// SPDX-License-Identifier: GPL-3.0-or-later
// The whole way from a file to an analysis's numbers against SciPy: tools/reference/spectra.py.
#include "host/spectral_data/compute_options.h"
#include "spectra_contract/spect_macro_result.h"
#include "tests/host/spectral_data/reference/reference_data.h"
#include "tests/support/globals_guard.h"
#include "tests/support/small_recording.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>

namespace orvanta::spectral {
namespace {

struct Case {
    const char* file;
    const char* first; ///< the two electrodes
    const char* second;
    double seconds;
};

class AnalysisReference : public testing::TestWithParam<Case> {
protected:
    /// The reference's Hanning spectra of this window at half overlap.
    nlohmann::json Expected() const {
        const nlohmann::json reference = test::ReadReference(GetParam().file + std::string(".json"));
        const double samples = std::trunc(GetParam().seconds * reference["rate"].get<double>() + 0.5);
        for (const auto& spectra : reference["cases"]) {
            if (spectra["taper"] == "Hanning" && spectra["n"].get<double>() == samples &&
                spectra["step"].get<double>() == std::trunc(samples / 2 + 0.5)) {
                return spectra;
            }
        }
        throw std::runtime_error("no such reference");
    }

    void SetUp() override {
        recording_ = signal::OpenRecording(test::ReferencePath(GetParam().file));
        const std::string first = GetParam().first, second = GetParam().second;
        recording_->GetTraceInfo()->SetMtg(
            test::MontageOf(*recording_, first + "-" + second + " = +" + first + " -" + second));
        SpectraMacro macro;
        macro.SetFFTSeconds(GetParam().seconds);
        macro.SetOverlapPerc(50);
        macro.SetDSPWindowStr("Hanning");
        result_ = std::make_unique<SpectMacroResult>(macro, recording_.get(), nullptr);
        ComputeOptions options;
        options.precision = Precision::Double;
        result_->SetComputeOptions(options);
        ASSERT_TRUE(result_->Compute(nullptr));
    }

    static void ExpectClose(const std::vector<double>& actual, const nlohmann::json& expected) {
        const auto values = expected.get<std::vector<double>>();
        ASSERT_EQ(actual.size(), values.size());
        const double largest = *std::max_element(values.begin(), values.end());
        for (std::size_t i = 0; i < values.size(); ++i) {
            EXPECT_NEAR(actual[i], values[i], 1e-9 * largest) << "bin " << i;
        }
    }

    void ExpectSensors(SPECT::Entity::Type entity, const char* mean, const char* sd) const {
        SPECT::GetGlobals().SetMeasEntity(entity);
        const nlohmann::json expected = Expected();
        for (const std::size_t row : {0u, 1u}) {
            const SensorType* sensor =
                test::SensorOf(*recording_, row == 0 ? GetParam().first : GetParam().second);
            const SpectrumSingle* spectrum = result_->GetSpectrum(sensor);
            ASSERT_NE(spectrum, nullptr);
            std::vector<double> values;
            spectrum->GetSpect(values);
            ExpectClose(values, expected["channels"][row][mean]);
            spectrum->GetSpectSD(values);
            ExpectClose(values, expected["channels"][row][sd]);
        }
    }

    test::GlobalsGuard guard_;
    std::unique_ptr<EEGFileInfoType> recording_;
    std::unique_ptr<SpectMacroResult> result_;
};

TEST_P(AnalysisReference, EpochsAreCounted) {
    EXPECT_EQ(result_->GetFFTCount(), Expected()["starts"].size());
}

TEST_P(AnalysisReference, Power) {
    ExpectSensors(SPECT::Entity::Type::Power, "mean", "sd");
}

TEST_P(AnalysisReference, Amplitude) {
    ExpectSensors(SPECT::Entity::Type::Amplitude, "amplitude_mean", "amplitude_sd");
}

TEST_P(AnalysisReference, CoherenceAndPhase) {
    const nlohmann::json expected = Expected();
    const SpectrumSingle* spectrum = result_->GetSpectrum(result_->GetMontage().GetChn(0));
    ASSERT_NE(spectrum, nullptr);
    const auto mean = [&](std::size_t row, std::size_t bin) {
        return expected["channels"][row]["mean"][bin].get<double>();
    };
    for (std::size_t bin = 0; bin < expected["cross_re"].size(); ++bin) {
        // The reference has the first electrode times the conjugate of the second; Sxy is the other way
        // round.
        const std::complex<double> cross(expected["cross_re"][bin], -expected["cross_im"][bin].get<double>());
        const SpectSample sample = spectrum->GetSample(bin);
        EXPECT_NEAR(sample.GetCohM(), std::abs(cross) / std::sqrt(mean(0, bin) * mean(1, bin)), 1e-7) << bin;
        EXPECT_NEAR(std::abs(std::polar(1.0, sample.GetCohP()) - cross / std::abs(cross)), 0, 1e-6) << bin;
    }
}

INSTANTIATE_TEST_SUITE_P(Recordings, AnalysisReference,
                         testing::Values(Case{"rate256.edf", "Fp1", "Fp2", 1.0},
                                         Case{"rate255.edf", "O1", "O2", 0.2},
                                         Case{"rate500.bdf", "C3", "C4", 0.1},
                                         Case{"rate173.bdf", "Cz", "Pz", 0.2}),
                         [](const auto& instance) {
                             const std::string name = instance.param.file;
                             return name.substr(0, 7) + name.substr(8);
                         });

} // namespace
} // namespace orvanta::spectral
