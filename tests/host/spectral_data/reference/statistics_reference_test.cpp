// SPDX-License-Identifier: GPL-3.0-or-later
// Statistics and measures against SciPy: tools/reference/statistics_reference.py.
#include "host/spectral_data/statistics/comparison.h"
#include "host/spectral_data/statistics/measures.h"
#include "host/spectral_data/statistics/regression.h"
#include "tests/host/spectral_data/reference/reference_data.h"

#include <gtest/gtest.h>

#include <cmath>

namespace orvanta::spectral {
namespace {

const nlohmann::json& Reference() {
    static const nlohmann::json reference = test::ReadReference("statistics.json");
    return reference;
}

void ExpectRelative(double actual, double expected, double tolerance, const std::string& what) {
    if (std::isnan(expected)) {
        EXPECT_TRUE(std::isnan(actual)) << what << " is " << actual;
    } else {
        EXPECT_NEAR(actual, expected, tolerance * std::abs(expected)) << what;
    }
}

TEST(StatisticsReference, WelchTestOfIndependentSamplesIsSciPys) {
    ASSERT_EQ(Reference()["t_tests"].size(), 6u);
    for (const auto& test : Reference()["t_tests"]) {
        const auto moments = [](const nlohmann::json& side) {
            const auto count = side[2].get<std::uint64_t>();
            return SampleMoments{side[0], side[1], count, static_cast<double>(count)};
        };
        const TestResult result = WelchTest(moments(test["a"]), moments(test["b"]));
        ExpectRelative(result.t, test["t"], 1e-12, "t");
        ExpectRelative(result.df, test["df"], 1e-12, "df");
        ExpectRelative(result.p, test["p"], 1e-10, "p");
    }
}

TEST(StatisticsReference, WelchTestWithEffectiveNumbersIsSciPysWithTheseCounts) {
    ASSERT_EQ(Reference()["effective_t_tests"].size(), 3u);
    for (const auto& test : Reference()["effective_t_tests"]) {
        const auto moments = [](const nlohmann::json& side) {
            return SampleMoments{side[0], side[1], side[2].get<std::uint64_t>(), side[3]};
        };
        const TestResult result = WelchTest(moments(test["a"]), moments(test["b"]));
        ExpectRelative(result.t, test["t"], 1e-12, "t");
        ExpectRelative(result.df, test["df"], 1e-12, "df");
        ExpectRelative(result.p, test["p"], 1e-10, "p");
    }
}

TEST(StatisticsReference, CoherenceTest) {
    ASSERT_EQ(Reference()["coherence_tests"].size(), 3u);
    for (const auto& test : Reference()["coherence_tests"]) {
        const TestResult result = CoherenceTest(test["a"][0], test["a"][1], test["b"][0], test["b"][1]);
        ExpectRelative(result.t, test["z"], 1e-12, "z");
        ExpectRelative(result.p, test["p"], 1e-10, "p");
    }
}

TEST(StatisticsReference, EffectiveNumbersOfEvenGappedAndRandomEpochs) {
    ASSERT_EQ(Reference()["effective_numbers"].size(), 4u);
    for (const auto& test : Reference()["effective_numbers"]) {
        const auto starts = test["starts"].get<std::vector<std::int64_t>>();
        const auto taper = test["taper"].get<std::vector<double>>();
        ExpectRelative(EffectiveEpochs(starts, taper), test["power"], 1e-12, "power");
        ExpectRelative(EffectiveLogEpochs(starts, taper), test["log_power"], 1e-12, "log power");
    }
}

TEST(StatisticsReference, LinesAreSciPysLinregress) {
    ASSERT_EQ(Reference()["lines"].size(), 4u);
    for (const auto& test : Reference()["lines"]) {
        const auto x = test["x"].get<std::vector<double>>();
        const auto y = test["y"].get<std::vector<double>>();
        const Line line = FitLine(x, y);
        EXPECT_EQ(line.count, x.size());
        // The x at 1e6 are themselves rounded to 1e-10.
        const double tolerance = std::abs(x[0]) > 1e5 ? 1e-9 : 1e-12;
        ExpectRelative(line.r, test["r"], tolerance, "r");
        ExpectRelative(line.slope, test["slope"], tolerance, "slope");
        ExpectRelative(line.intercept, test["intercept"], tolerance, "intercept");
    }
}

TEST(StatisticsReference, MeasuresOfEveryEntity) {
    const auto& reference = Reference()["measures"][0];
    const auto power = reference["spectra"]["power"].get<std::vector<double>>();
    const std::pair<const char*, SPECT::Entity::Type> entities[] = {
        {"amplitude", SPECT::Entity::Type::Amplitude},
        {"power", SPECT::Entity::Type::Power},
        {"coherence", SPECT::Entity::Type::Coherence},
        {"phase", SPECT::Entity::Type::Phase}};
    ASSERT_EQ(reference["bands"].size(), 7u);
    for (const auto& [name, entity] : entities) {
        const auto values = reference["spectra"][name].get<std::vector<double>>();
        MeasureInput input;
        input.entity = entity;
        input.resolution_hz = reference["resolution"];
        input.values = values;
        input.power = power;
        input.total_lo = reference["total"][0];
        input.total_hi = reference["total"][1];
        input.abs_mean = reference["abs_mean"];
        input.abs_sd = reference["abs_sd"];
        for (const auto& band : reference["bands"]) {
            for (int measure = 0; measure < static_cast<int>(SPECT::Meas::Count); ++measure) {
                const double actual =
                    BandMeasure(input, band["lo"], band["hi"], static_cast<SPECT::Meas::Type>(measure));
                ExpectRelative(
                    actual, test::NumberOrNaN(band[name][static_cast<std::size_t>(measure)]), 1e-12,
                    std::string(name) + " measure " + std::to_string(measure) + " of " + band["lo"].dump());
            }
        }
    }
}

} // namespace
} // namespace orvanta::spectral
