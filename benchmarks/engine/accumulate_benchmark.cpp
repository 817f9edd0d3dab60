// SPDX-License-Identifier: GPL-3.0-or-later
// Whole computations from stored 16-bit samples in memory: 2-second windows, half overlapping, Hanning. The
// recordings repeat one minute, so that their size stays out of the measurement.
#include "host/spectral_data/engine/engine.h"

#include <benchmark/benchmark.h>

#include <bit>
#include <cmath>
#include <cstring>
#include <numbers>

namespace orvanta::spectral {
namespace {

class RepeatedMinute final : public signal::BlockSource {
public:
    RepeatedMinute(std::size_t signals, std::uint32_t rate, std::uint64_t seconds)
        : seconds_(seconds), rate_(rate), blockBytes_(signals * rate * 2), bytes_(60 * blockBytes_) {
        for (std::size_t s = 0; s < signals; ++s) {
            layouts_.push_back({signal::SampleFormat::Int16, rate, s * rate * 2, 2});
        }
        std::uint32_t state = 1;
        for (std::byte& byte : bytes_) {
            state = state * 1664525 + 1013904223;
            byte = static_cast<std::byte>(state >> 24);
        }
    }

    std::size_t SignalCount() const override { return layouts_.size(); }
    const signal::SignalLayout& Layout(std::size_t signal) const override { return layouts_[signal]; }
    std::uint64_t BlockCount() const override { return seconds_; }
    std::size_t BlockBytes() const override { return blockBytes_; }
    std::uint64_t SampleCount(std::size_t) const override { return seconds_ * rate_; }
    void Read(std::uint64_t first, std::uint64_t count, std::byte* destination) const override {
        for (std::uint64_t block = first; block < first + count; ++block, destination += blockBytes_) {
            std::memcpy(destination, bytes_.data() + block % 60 * blockBytes_, blockBytes_);
        }
    }

private:
    std::vector<signal::SignalLayout> layouts_;
    std::uint64_t seconds_;
    std::uint32_t rate_;
    std::size_t blockBytes_;
    std::vector<std::byte> bytes_;
};

EngineRequest WelchRequest(std::size_t sensors, std::uint32_t rate, std::int64_t seconds) {
    EngineRequest request;
    for (std::size_t s = 0; s < sensors; ++s) {
        request.sensors.push_back({s, 0.1, 0});
    }
    request.window = 2 * rate;
    request.padded = std::bit_ceil(request.window);
    for (std::int64_t second = 0; second + 2 <= seconds; ++second) {
        request.epochs.push_back(second * rate);
    }
    for (std::uint32_t i = 0; i < request.window; ++i) {
        request.taper.push_back(0.5 - 0.5 * std::cos(2 * std::numbers::pi * i / request.window));
    }
    request.rate_hz = rate;
    request.bins = request.padded / 2 + 1;
    return request;
}

void Run(benchmark::State& state, const EngineRequest& request, std::size_t sensors, std::uint32_t rate,
         std::uint64_t seconds) {
    const RepeatedMinute source(sensors, rate, seconds);
    EngineRequest own = request;
    own.threads = static_cast<unsigned>(state.range(0));
    for (auto _ : state) {
        EngineResult result;
        Accumulate(source, own, result, nullptr);
        benchmark::DoNotOptimize(result.power.mean.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(seconds * source.BlockBytes()));
}

enum class Extra { None, Double, Statistics, Bipolar, Reference };

void Whole(benchmark::State& state, std::size_t sensors, std::uint32_t rate, std::uint64_t seconds,
           Extra extra) {
    EngineRequest request = WelchRequest(sensors, rate, static_cast<std::int64_t>(seconds));
    if (extra == Extra::Double) {
        request.precision = Precision::Double;
    } else if (extra == Extra::Statistics) {
        request.log_power = true;
        for (std::uint32_t band = 0; band < 6; ++band) {
            request.bands.push_back({1 + 15 * band, 16 + 15 * band});
        }
    } else if (extra == Extra::Bipolar) {
        for (std::uint32_t s = 0; s + 1 < sensors; ++s) {
            request.derived.push_back({{{s, 1}, {s + 1, -1}}, true});
        }
    } else if (extra == Extra::Reference) {
        const auto mean = static_cast<std::uint32_t>(sensors);
        request.derived.push_back({{}, false});
        for (std::uint32_t s = 0; s < sensors; ++s) {
            request.derived[0].terms.push_back({s, 1.0 / static_cast<double>(sensors)});
            request.derived.push_back({{{s, 1}, {mean, -1}}, true});
        }
    }
    Run(state, request, sensors, rate, seconds);
}

constexpr auto kUnit = benchmark::kMillisecond;
BENCHMARK_CAPTURE(Whole, Small, 32, 256, 600, Extra::None)
    ->Arg(1)
    ->Arg(4)
    ->Unit(kUnit)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(Whole, Medium, 64, 512, 3600, Extra::None)
    ->Arg(1)
    ->Arg(4)
    ->Unit(kUnit)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(Whole, Large, 128, 1024, 7200, Extra::None)
    ->Arg(1)
    ->Arg(4)
    ->Unit(kUnit)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(Whole, MediumDouble, 64, 512, 3600, Extra::Double)
    ->Arg(1)
    ->Unit(kUnit)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(Whole, MediumStatistics, 64, 512, 3600, Extra::Statistics)
    ->Arg(1)
    ->Unit(kUnit)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(Whole, MediumBipolar, 64, 512, 3600, Extra::Bipolar)
    ->Arg(1)
    ->Unit(kUnit)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(Whole, MediumReference, 64, 512, 3600, Extra::Reference)
    ->Arg(1)
    ->Unit(kUnit)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

/// One epoch of every sensor, and every epoch of one sensor.
void Epochs(benchmark::State& state, bool oneSensor) {
    const RepeatedMinute source(64, 512, 3600);
    EngineRequest request = WelchRequest(64, 512, 3600);
    request.threads = static_cast<unsigned>(state.range(0));
    std::vector<std::uint64_t> epochs;
    std::vector<std::uint32_t> rows;
    for (std::uint64_t e = 0; e < (oneSensor ? request.epochs.size() : 1); ++e) {
        epochs.push_back(e);
    }
    for (std::uint32_t r = 0; r < (oneSensor ? 1 : 64); ++r) {
        rows.push_back(r);
    }
    std::vector<float> out;
    for (auto _ : state) {
        EpochPower(source, request, epochs, rows, out);
        benchmark::DoNotOptimize(out.data());
    }
}
BENCHMARK_CAPTURE(Epochs, OneEpochOfAll, false)->Arg(1)->Unit(kUnit)->MeasureProcessCPUTime()->UseRealTime();
BENCHMARK_CAPTURE(Epochs, AllOfOneSensor, true)
    ->Arg(1)
    ->Arg(4)
    ->Unit(kUnit)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

} // namespace
} // namespace orvanta::spectral
