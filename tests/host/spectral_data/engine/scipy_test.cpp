// SPDX-License-Identifier: GPL-3.0-or-later
// The engine against SciPy: tests/data/engine/welch.json, written by tools/reference/engine_reference.py.
#include "host/spectral_data/engine/engine.h"

#include "tests/host/spectral_data/engine/engine_cases.h"
#include "tests/support/raw_source.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <fstream>

namespace orvanta::spectral {
namespace {

using nlohmann::json;
using Values = std::vector<double>;

/// The samples of the script's coloured().
Values Coloured(std::size_t count, unsigned seed, double offset) {
    std::uint32_t state = seed + 1;
    std::int64_t level = 0;
    Values values(count);
    for (double& value : values) {
        state = 1664525U * state + 1013904223U;
        level += static_cast<std::int64_t>(state >> 20) - 2048 - (level >> 3);
        value = static_cast<double>(level) + offset;
    }
    return values;
}

const json& Cases() {
    static const json cases = json::parse(std::ifstream(ORVANTA_TEST_DATA "/engine/welch.json"));
    return cases;
}

class EngineBesideSciPy : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override {
        const auto found =
            std::ranges::find_if(Cases(), [](const json& one) { return one["name"] == GetParam(); });
        ASSERT_NE(found, Cases().end());
        case_ = *found;
    }

    /// Rows: the three channels, first less second, first less the mean of all (a node that is not
    /// accumulated).
    EngineResult Compute(Precision precision) const {
        std::vector<Values> stored;
        for (unsigned seed = 0; seed < 3; ++seed) {
            stored.push_back(Coloured(case_["samples"], seed, case_["offset"]));
        }
        const test::RawSource source(case_["format"] == "int24" ? signal::SampleFormat::Int24
                                                                : signal::SampleFormat::Int16,
                                     stored, 97);
        const std::uint32_t window = case_["window"];
        const double overlap = 100.0 - 100.0 * case_["step"].get<double>() / window;
        EngineRequest request =
            RequestFor(3, case_["samples"], window, overlap, case_["rate"], case_["taper"].get<Values>());
        for (EngineSensor& sensor : request.sensors) {
            sensor.gain = case_["gain"];
        }
        request.derived = {{{{0, 1}, {1, -1}}, true},
                           {{{0, 1.0 / 3}, {1, 1.0 / 3}, {2, 1.0 / 3}}, false},
                           {{{0, 1}, {4, -1}}, true}};
        request.pairs = {{0, 1}};
        request.amplitude = request.log_power = true;
        request.precision = precision;
        EngineResult result;
        EXPECT_TRUE(Accumulate(source, request, result, nullptr));
        return result;
    }

    json ExpectedRow(std::size_t row) const {
        return row < 3 ? case_["channels"][row] : case_[row == 3 ? "difference" : "reference"];
    }

    json case_;
};

/// Within \p ofLargest of the largest value, and within \p ofEach of those above a millionth of it.
void ExpectClose(const Values& values, const Values& expected, double ofLargest, double ofEach,
                 const std::string& what) {
    ASSERT_EQ(values.size(), expected.size()) << what;
    double largest = 0;
    for (const double value : expected) {
        largest = std::max(largest, std::abs(value));
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_NEAR(values[i], expected[i], ofLargest * largest) << what << ", bin " << i;
        if (std::abs(expected[i]) > 1e-6 * largest) {
            EXPECT_NEAR(values[i], expected[i], ofEach * std::abs(expected[i])) << what << ", bin " << i;
        }
    }
}

void ExpectMoments(const Moments& moments, std::size_t row, std::size_t bins, std::uint64_t epochs,
                   const json& expected, double ofLargest, double ofEach, const std::string& what) {
    const auto at = static_cast<std::ptrdiff_t>(row * bins);
    const auto end = at + static_cast<std::ptrdiff_t>(bins);
    ExpectClose(Values(moments.mean.begin() + at, moments.mean.begin() + end), expected["mean"], ofLargest,
                ofEach, what + " mean of row " + std::to_string(row));
    Values sd(moments.m2.begin() + at, moments.m2.begin() + end);
    for (double& value : sd) {
        value = std::sqrt(value / static_cast<double>(epochs - 1));
    }
    ExpectClose(sd, expected["sd"], ofLargest, ofEach, what + " SD of row " + std::to_string(row));
}

void ExpectCross(const std::vector<std::complex<double>>& cross, const json& one, double ofLargest) {
    ASSERT_EQ(cross.size(), one["cross_re"].size());
    std::vector<std::complex<double>> expected;
    double largest = 0;
    for (std::size_t bin = 0; bin < cross.size(); ++bin) {
        expected.emplace_back(one["cross_re"][bin], one["cross_im"][bin]);
        largest = std::max(largest, std::abs(expected.back()));
    }
    for (std::size_t bin = 0; bin < cross.size(); ++bin) {
        EXPECT_LT(std::abs(cross[bin] - expected[bin]), ofLargest * largest) << "cross-spectrum, bin " << bin;
    }
}

TEST_P(EngineBesideSciPy, AgreesInFloat) {
    const EngineResult result = Compute(Precision::Float);
    ASSERT_EQ(result.rows, 5U);
    for (std::size_t row = 0; row < 5; ++row) {
        ExpectMoments(result.power, row, result.bins, result.epochs, ExpectedRow(row)["power"], 1e-6, 1e-4,
                      "power");
        ExpectMoments(result.amplitude, row, result.bins, result.epochs, ExpectedRow(row)["root"], 1e-6, 1e-4,
                      "amplitude");
    }
    ExpectCross(result.cross, case_, 1e-6);
}

TEST_P(EngineBesideSciPy, AgreesInDouble) {
    const EngineResult result = Compute(Precision::Double);
    for (std::size_t row = 0; row < 5; ++row) {
        ExpectMoments(result.power, row, result.bins, result.epochs, ExpectedRow(row)["power"], 1e-9, 1e-9,
                      "power");
        ExpectMoments(result.amplitude, row, result.bins, result.epochs, ExpectedRow(row)["root"], 1e-9, 1e-9,
                      "amplitude");
    }
    ExpectCross(result.cross, case_, 1e-9);
}

/// The mean removed leaves nothing in bin 0 when the taper is even, and so no logarithm: bins from 1 on.
TEST_P(EngineBesideSciPy, AgreesInTheLogarithm) {
    const EngineResult single = Compute(Precision::Float);
    const EngineResult exact = Compute(Precision::Double);
    for (std::size_t row = 0; row < 5; ++row) {
        const json expected = ExpectedRow(row)["log"];
        for (std::size_t bin = 1; bin < single.bins; ++bin) {
            const std::size_t at = row * single.bins + bin;
            const double mean = expected["mean"][bin - 1];
            const double sd = expected["sd"][bin - 1];
            const auto freedom = static_cast<double>(single.epochs - 1);
            EXPECT_NEAR(exact.log_power.mean[at], mean, 1e-8) << row << " bin " << bin;
            EXPECT_NEAR(std::sqrt(exact.log_power.m2[at] / freedom), sd, 1e-8) << row << " bin " << bin;
            EXPECT_NEAR(single.log_power.mean[at], mean, 1e-4) << row << " bin " << bin;
            EXPECT_NEAR(std::sqrt(single.log_power.m2[at] / freedom), sd, 1e-4) << row << " bin " << bin;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, EngineBesideSciPy,
                         testing::Values("rectangular", "half_overlap", "odd_length", "dense", "odd_rate",
                                         "flat", "offset_200_mV"),
                         [](const auto& one) { return one.param; });

} // namespace
} // namespace orvanta::spectral
