// SPDX-License-Identifier: GPL-3.0-or-later
// Spectra of small EDF and BDF files against SciPy: tools/reference/spectra.py.
#include "host/signal_base/recording_data.h"
#include "host/spectral_data/engine/engine.h"
#include "host/spectral_data/settings/tapers.h"
#include "tests/host/spectral_data/reference/reference_data.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>

namespace orvanta::spectral {
namespace {

struct Tolerance {
    double of_largest; ///< of the spectrum's largest value, at every bin
    double of_value;   ///< of the value itself, at the bins above kFloor of the largest
};
constexpr Tolerance kFloat{1e-6, 1e-4};
constexpr Tolerance kDouble{1e-9, 1e-9};
constexpr double kFloor = 1e-6;

/// Largest deviations, as a share of the largest value and of the values above the floor.
Tolerance Deviation(std::span<const double> actual, const nlohmann::json& expected) {
    const auto values = expected.get<std::vector<double>>();
    EXPECT_EQ(actual.size(), values.size());
    const double largest = *std::max_element(values.begin(), values.end());
    Tolerance worst{0, 0};
    for (std::size_t i = 0; i < std::min(actual.size(), values.size()); ++i) {
        const double difference = std::abs(actual[i] - values[i]);
        EXPECT_TRUE(std::isfinite(difference)) << "bin " << i;
        worst.of_largest = std::max(worst.of_largest, difference / largest);
        if (values[i] > kFloor * largest) {
            worst.of_value = std::max(worst.of_value, difference / values[i]);
        }
    }
    return worst;
}

std::vector<double> StandardDeviations(std::span<const double> m2, std::uint64_t epochs) {
    std::vector<double> deviations;
    for (const double sum : m2) {
        deviations.push_back(std::sqrt(sum / static_cast<double>(epochs - 1)));
    }
    return deviations;
}

std::span<const double> Row(const std::vector<double>& values, std::size_t row, std::uint32_t bins) {
    return std::span(values).subspan(row * bins, bins);
}

class SpectraReference : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        recording_ = signal::ReadEdf(test::ReferencePath(GetParam()));
        reference_ = test::ReadReference(GetParam() + std::string(".json"));
    }

    EngineResult Compute(const nlohmann::json& spectra, Precision precision) const {
        EngineRequest request;
        for (std::size_t s = 0; s < recording_.signals.size(); ++s) {
            request.sensors.push_back({s, recording_.signals[s].gain, recording_.signals[s].offset});
        }
        request.pairs = {{0, 1}};
        request.epochs = spectra["starts"].get<std::vector<std::int64_t>>();
        request.window = spectra["n"];
        request.padded = spectra["p"];
        request.taper = FindTaper(spectra["taper"]).Values(request.window);
        request.rate_hz = recording_.signals[0].rate_hz;
        request.bins = request.padded / 2 + 1;
        request.amplitude = true;
        request.log_power = true;
        request.precision = precision;
        EngineResult result;
        EXPECT_TRUE(Accumulate(*recording_.source, request, result, nullptr));
        return result;
    }

    /// Every taper at overlaps 0, 50, 75 %, and a longer window.
    void ExpectMomentsWithin(Precision precision, Tolerance allowed) {
        ASSERT_EQ(reference_["cases"].size(), 7u * 3u + 1u);
        Tolerance worst{0, 0};
        for (const auto& spectra : reference_["cases"]) {
            const EngineResult result = Compute(spectra, precision);
            for (std::size_t row = 0; row < spectra["channels"].size(); ++row) {
                const auto& channel = spectra["channels"][row];
                const auto check = [&](const Moments& moments, const char* mean, const char* sd) {
                    const std::vector<double> deviations =
                        StandardDeviations(Row(moments.m2, row, result.bins), result.epochs);
                    for (const Tolerance found :
                         {Deviation(Row(moments.mean, row, result.bins), channel[mean]),
                          Deviation(deviations, channel[sd])}) {
                        EXPECT_LE(found.of_largest, allowed.of_largest) << Describe(spectra, row, mean);
                        EXPECT_LE(found.of_value, allowed.of_value) << Describe(spectra, row, mean);
                        worst.of_largest = std::max(worst.of_largest, found.of_largest);
                        worst.of_value = std::max(worst.of_value, found.of_value);
                    }
                };
                check(result.power, "mean", "sd");
                check(result.amplitude, "amplitude_mean", "amplitude_sd");
            }
        }
        RecordProperty("worst_of_largest", std::to_string(worst.of_largest / allowed.of_largest));
        RecordProperty("worst_of_value", std::to_string(worst.of_value / allowed.of_value));
    }

    static std::string Describe(const nlohmann::json& spectra, std::size_t row, const char* what) {
        return spectra["taper"].get<std::string>() + ", n " + spectra["n"].dump() + ", step " +
               spectra["step"].dump() + ", row " + std::to_string(row) + ", " + what;
    }

    signal::RecordingData recording_;
    nlohmann::json reference_;
};

TEST_P(SpectraReference, ReadsTheRate) {
    for (const auto& header : recording_.signals) {
        EXPECT_DOUBLE_EQ(header.rate_hz, reference_["rate"].get<double>());
    }
}

TEST_P(SpectraReference, MeanAndDeviationInFloat) {
    ExpectMomentsWithin(Precision::Float, kFloat);
}

TEST_P(SpectraReference, MeanAndDeviationInDouble) {
    ExpectMomentsWithin(Precision::Double, kDouble);
}

TEST_P(SpectraReference, LogPowerInDouble) {
    for (const auto& spectra : reference_["cases"]) {
        if (!spectra["channels"][0].contains("log_mean")) {
            continue;
        }
        const EngineResult result = Compute(spectra, Precision::Double);
        for (std::size_t row = 0; row < 2; ++row) {
            const auto& channel = spectra["channels"][row];
            for (std::size_t bin = 0; bin < result.bins; ++bin) {
                const double mean = channel["log_mean"][bin];
                const double m2 = channel["log_m2"][bin];
                EXPECT_NEAR(result.log_power.mean[row * result.bins + bin], mean, 1e-7) << bin;
                EXPECT_NEAR(result.log_power.m2[row * result.bins + bin], m2, 1e-6 * m2 + 1e-7) << bin;
            }
        }
    }
}

TEST_P(SpectraReference, CrossSpectraInDouble) {
    for (const auto& spectra : reference_["cases"]) {
        if (!spectra.contains("cross_re")) {
            continue;
        }
        const EngineResult result = Compute(spectra, Precision::Double);
        ASSERT_EQ(result.cross.size(), spectra["cross_re"].size());
        for (std::size_t bin = 0; bin < result.bins; ++bin) {
            const std::complex<double> expected(spectra["cross_re"][bin], spectra["cross_im"][bin]);
            const double size = std::sqrt(result.power.mean[bin] * result.power.mean[result.bins + bin]);
            EXPECT_LE(std::abs(result.cross[bin] - expected), 1e-8 * size) << bin;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Recordings, SpectraReference,
                         testing::Values("rate256.edf", "rate255.edf", "rate500.bdf", "rate173.bdf"),
                         [](const auto& instance) {
                             const std::string name = instance.param;
                             return name.substr(0, 7) + name.substr(8);
                         });

} // namespace
} // namespace orvanta::spectral
