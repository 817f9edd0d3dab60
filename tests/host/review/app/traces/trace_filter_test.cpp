// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_filter.h"

#include "tests/support/small_recording.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <fstream>
#include <limits>
#include <numbers>

namespace orvanta::review {
namespace {

using testing::SizeIs;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct Reference {
    double rate;
    TraceFilter filter;
    std::vector<std::vector<double>> sections;
    std::vector<double> filtered;
    std::int64_t settling;
};

std::vector<Reference> References() {
    std::ifstream file(ORVANTA_TEST_DATA "/traces/filters.json");
    std::vector<Reference> references;
    for (const auto& entry : nlohmann::json::parse(file)) {
        references.push_back({entry.at("rate"),
                              {entry.at("low_cut"), entry.at("high_cut"), entry.at("notch")},
                              entry.at("sections"),
                              entry.at("filtered"),
                              entry.at("settling")});
    }
    return references;
}

TraceChannel LineIn(const char* unit, std::uint32_t type, double rate = 256) {
    TraceChannel line;
    line.unit = unit;
    line.type = type;
    line.rate = rate;
    return line;
}

/// What is left of the amplitude of a wave after a minute.
double GainAt(double hz, const TraceFilter& filter, double rate) {
    std::vector<double> wave(static_cast<std::size_t>(60 * rate));
    for (std::size_t i = 0; i < wave.size(); ++i) {
        wave[i] = std::sin(2 * std::numbers::pi * hz * static_cast<double>(i) / rate);
    }
    FilterRun(SectionsOf(filter, rate)).Apply(wave);
    double squares = 0;
    const auto last = static_cast<std::size_t>(10 * rate);
    for (std::size_t i = wave.size() - last; i < wave.size(); ++i) {
        squares += wave[i] * wave[i];
    }
    return std::sqrt(2 * squares / static_cast<double>(last));
}

TEST(TraceFilters, HaveTheSectionsOfSciPy) {
    const std::vector<Reference> references = References();
    ASSERT_THAT(references, SizeIs(6));
    for (const Reference& reference : references) {
        const std::vector<Biquad> sections = SectionsOf(reference.filter, reference.rate);
        ASSERT_EQ(sections.size(), reference.sections.size());
        for (std::size_t s = 0; s < sections.size(); ++s) {
            const Biquad& f = sections[s];
            const std::vector<double> ours{f.b0, f.b1, f.b2, f.a1, f.a2};
            for (std::size_t i = 0; i < 5; ++i) {
                EXPECT_NEAR(ours[i], reference.sections[s][i], 1e-12)
                    << reference.rate << " " << s << " " << i;
            }
        }
    }
}

TEST(TraceFilters, GiveWhatSciPyGives) {
    for (const Reference& reference : References()) {
        std::vector<double> values = test::Fp1Values(reference.filtered.size());
        FilterRun(SectionsOf(reference.filter, reference.rate)).Apply(values);
        for (std::size_t i = 0; i < values.size(); ++i) {
            EXPECT_NEAR(values[i], reference.filtered[i], 1e-8) << reference.rate << " " << i;
        }
    }
}

TEST(TraceFilters, KeepSevenTenthsAtACut) {
    EXPECT_NEAR(GainAt(1, {1, 0, 0}, 256), std::sqrt(0.5), 1e-4);
    EXPECT_NEAR(GainAt(70, {0, 70, 0}, 256), std::sqrt(0.5), 1e-4);
}

TEST(TraceFilters, TakeMainsOutAndLeaveTheRest) {
    const TraceFilter filter{0, 0, 50};

    EXPECT_LT(GainAt(50, filter, 256), 1e-6);
    EXPECT_GT(GainAt(45, filter, 256), 0.98);
    EXPECT_GT(GainAt(10, filter, 256), 0.999);
}

TEST(TraceFilters, LeaveOutWhatTheRateCannotHave) {
    EXPECT_THAT(SectionsOf(TraceFilter{0.5, 70, 50}, 256), SizeIs(3));
    EXPECT_THAT(SectionsOf(TraceFilter{0.5, 70, 50}, 128), SizeIs(2));
    EXPECT_THAT(SectionsOf(TraceFilter{0.5, 70, 50}, 100), SizeIs(1));
    EXPECT_THAT(SectionsOf(TraceFilter{0.5, 70, 50}, 1), SizeIs(0));
    EXPECT_THAT(SectionsOf(TraceFilter{-1, kNaN, HUGE_VAL}, 256), SizeIs(0));
}

TEST(TraceFilters, AreForVoltagesOtherThanRespiration) {
    const TraceFilter filter{1, 0, 0};

    EXPECT_THAT(SectionsOf(filter, LineIn("\u00B5V", Sensor::ScalpEeg)), SizeIs(1));
    EXPECT_THAT(SectionsOf(filter, LineIn("\u00B5V", Sensor::Ecg)), SizeIs(1));
    EXPECT_THAT(SectionsOf(filter, LineIn("\u00B5V", Sensor::Respiration)), SizeIs(0));
    EXPECT_THAT(SectionsOf(filter, LineIn("%", Sensor::OtherSignal)), SizeIs(0));
    EXPECT_THAT(SectionsOf(filter, LineIn("raw", Sensor::UnplacedEeg)), SizeIs(0));
}

TEST(TraceFilters, StartSettledWithAnOffset) {
    std::vector<double> values(1000, 200'000.0);

    FilterRun(SectionsOf(TraceFilter{0.5, 70, 50}, 256)).Apply(values);

    EXPECT_THAT(values, testing::Each(testing::DoubleNear(0, 1e-6)));
}

TEST(TraceFilters, GoOnWhereTheyWere) {
    std::vector<double> whole = test::Fp1Values(100), parts = whole;
    const std::vector<Biquad> sections = SectionsOf(TraceFilter{1, 30, 50}, 256);

    FilterRun(sections).Apply(whole);
    FilterRun run(sections);
    run.Apply(std::span(parts).first(37));
    run.Apply(std::span(parts).subspan(37));

    EXPECT_EQ(parts, whole);
}

TEST(TraceFilters, StartAnewBehindWhatIsNoNumber) {
    std::vector<double> values = test::Fp1Values(40), behind(values.begin() + 21, values.end());
    values[20] = kNaN;
    const std::vector<Biquad> sections = SectionsOf(TraceFilter{1, 30, 50}, 256);

    FilterRun(sections).Apply(values);
    FilterRun(sections).Apply(behind);

    EXPECT_TRUE(std::isnan(values[20]));
    EXPECT_EQ(std::vector<double>(values.begin() + 21, values.end()), behind);
}

TEST(TraceFilters, SettleAsTheirSlowestPoleDoes) {
    for (const Reference& reference : References()) {
        EXPECT_EQ(SettlingSamples(SectionsOf(reference.filter, reference.rate), 1'000'000),
                  reference.settling)
            << reference.rate;
    }
    EXPECT_EQ(SettlingSamples({}, 1000), 0);
    EXPECT_EQ(SettlingSamples(SectionsOf(TraceFilter{1e-12, 0, 0}, 256), 1000), 1000);
}

} // namespace
} // namespace orvanta::review
