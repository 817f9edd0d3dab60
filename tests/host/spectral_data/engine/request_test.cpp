// SPDX-License-Identifier: GPL-3.0-or-later
// Requests that contradict themselves or the recording.
#include "host/spectral_data/engine/engine.h"

#include "tests/host/spectral_data/engine/engine_cases.h"
#include "tests/support/memory_source.h"
#include "tests/support/raw_source.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace orvanta::spectral {
namespace {

EngineRequest Good() {
    return RequestFor(2, 400, 100, 50, 100.0, Hanning(100));
}

TEST(EngineRequest, IsRefusedWhenItContradictsItselfOrTheRecording) {
    const test::RawSource source(signal::SampleFormat::Int16, {Counts(400, 1, 9), Counts(400, 2, 9)}, 100);
    EngineResult result;
    ASSERT_TRUE(Accumulate(source, Good(), result, nullptr));

    const std::vector<std::pair<const char*, std::function<void(EngineRequest&)>>> wrong{
        {"no sensors", [](EngineRequest& r) { r.sensors.clear(); }},
        {"unknown signal", [](EngineRequest& r) { r.sensors[1].signal = 2; }},
        {"offset NaN", [](EngineRequest& r) { r.sensors[0].offset = std::nan(""); }},
        {"no window", [](EngineRequest& r) { r.window = 0; }},
        {"padding too short", [](EngineRequest& r) { r.padded = 64; }},
        {"padding too long", [](EngineRequest& r) { r.padded = 256; }},
        {"padding odd", [](EngineRequest& r) { r.padded = 100; }},
        {"taper short", [](EngineRequest& r) { r.taper.pop_back(); }},
        {"taper empty of energy", [](EngineRequest& r) { r.taper.assign(100, 0); }},
        {"taper NaN", [](EngineRequest& r) { r.taper[5] = std::nan(""); }},
        {"rate 0", [](EngineRequest& r) { r.rate_hz = 0; }},
        {"rate infinite", [](EngineRequest& r) { r.rate_hz = INFINITY; }},
        {"no bins", [](EngineRequest& r) { r.bins = 0; }},
        {"too many bins", [](EngineRequest& r) { r.bins = 66; }},
        {"too many stored bins", [](EngineRequest& r) { r.store_bins = 66; }},
        {"band reversed",
         [](EngineRequest& r) {
             r.bands = {{5, 4}};
         }},
        {"band beyond",
         [](EngineRequest& r) {
             r.bands = {{5, 66}};
         }},
        {"epoch negative", [](EngineRequest& r) { r.epochs = {-1}; }},
        {"epoch beyond", [](EngineRequest& r) { r.epochs = {301}; }},
        {"epoch far beyond", [](EngineRequest& r) { r.epochs = {INT64_MAX}; }},
        {"epochs descending",
         [](EngineRequest& r) {
             r.epochs = {50, 0};
         }},
        {"node of itself",
         [](EngineRequest& r) {
             r.derived = {{{{2, 1}}, true}};
         }},
        {"weight NaN",
         [](EngineRequest& r) {
             r.derived = {{{{0, std::nan("")}}, true}};
         }},
        {"pair beyond",
         [](EngineRequest& r) {
             r.pairs = {{0, 2}};
         }},
    };
    for (const auto& [what, change] : wrong) {
        EngineRequest request = Good();
        change(request);
        EXPECT_THROW(Accumulate(source, request, result, nullptr), std::invalid_argument) << what;
        std::vector<float> out;
        EXPECT_THROW(EpochPower(source, request, {}, {}, out), std::invalid_argument) << what;
    }
}

TEST(EngineRequest, IsRefusedForSensorsOfDifferentRates) {
    const auto data = test::MakeData({{"Fp1", 100, Counts(400, 1, 9)}, {"ECG", 200, Counts(800, 2, 9)}});
    EngineResult result;
    EXPECT_THROW(Accumulate(*data.source, Good(), result, nullptr), std::invalid_argument);
    EngineRequest one = Good();
    one.sensors.pop_back();
    EXPECT_TRUE(Accumulate(*data.source, one, result, nullptr));
}

/// Claims more than its blocks hold.
class LyingSource final : public test::RawSource {
public:
    LyingSource() : RawSource(signal::SampleFormat::Int16, {Counts(400, 1, 9)}, 100) {}
    const signal::SignalLayout& Layout(std::size_t) const override { return layout; }
    std::uint64_t SampleCount(std::size_t) const override { return samples; }

    signal::SignalLayout layout{signal::SampleFormat::Int16, 100, 0, 2};
    std::uint64_t samples = 400;
};

TEST(EngineRequest, IsRefusedForSamplesOutsideTheirBlocks) {
    EngineRequest request = Good();
    request.sensors.pop_back();
    EngineResult result;
    LyingSource source;
    ASSERT_TRUE(Accumulate(source, request, result, nullptr));
    source.samples = 401;
    EXPECT_THROW(Accumulate(source, request, result, nullptr), std::invalid_argument);
    source.samples = 400;
    source.layout.offset = 1;
    EXPECT_THROW(Accumulate(source, request, result, nullptr), std::invalid_argument);
    source.layout = {signal::SampleFormat::Int24, 100, 0, 2};
    EXPECT_THROW(Accumulate(source, request, result, nullptr), std::invalid_argument);
    source.layout = {signal::SampleFormat::Int16, 0, 0, 2};
    EXPECT_THROW(Accumulate(source, request, result, nullptr), std::invalid_argument);
}

} // namespace
} // namespace orvanta::spectral
