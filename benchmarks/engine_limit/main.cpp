// SPDX-License-Identifier: GPL-3.0-or-later
// engine_limit FILE [THREADS]: what the engine takes, and what it would take at the least. limit_seconds is
// what reading FILE and the bare transforms of its spectra take, at the least: 2-second windows, half
// overlapping. Each thread reads its share of the blocks (from the page cache when the file was read before),
// then transforms as many epochs as the share has, from memory that is in its cache, with the powers and
// their sums; nothing is converted, weighed or put in order. engine_seconds is the whole computation of mean
// and SD with the engine.
#include "host/signal_base/recording_data.h"
#include "host/signal_base/recording_error.h"
#include "host/spectral_data/engine/engine.h"
#include "host/spectral_data/engine/kernel/moments.h"
#include "host/spectral_data/engine/kernel/transform.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <exception>
#include <memory>
#include <numbers>
#include <thread>
#include <vector>

namespace orvanta::spectral {
namespace {

struct Shape {
    std::size_t sensors = 0;
    std::uint32_t window = 0;
    std::uint64_t epochs = 0;
};

Shape ShapeOf(const signal::RecordingData& data) {
    double rate = 0;
    for (const signal::SignalHeader& header : data.signals) {
        rate = header.annotations || header.status ? rate : std::max(rate, header.rate_hz);
    }
    Shape shape;
    std::uint64_t samples = 0;
    for (std::size_t s = 0; s < data.signals.size(); ++s) {
        const signal::SignalHeader& header = data.signals[s];
        if (!header.annotations && !header.status && header.rate_hz == rate) {
            ++shape.sensors;
            samples = std::max(samples, data.source->SampleCount(s));
        }
    }
    shape.window = static_cast<std::uint32_t>(std::clamp(2 * rate + 0.5, 2.0, 1e6));
    const std::uint64_t step = (shape.window + 1) / 2;
    shape.epochs = samples < shape.window ? 0 : (samples - shape.window) / step + 1;
    return shape;
}

void ReadShare(const signal::BlockSource& source, std::uint64_t first, std::uint64_t last) {
    constexpr std::size_t kReadBytes = std::size_t{4} << 20;
    const std::uint64_t step = std::max<std::uint64_t>(1, kReadBytes / source.BlockBytes());
    const auto buffer = std::make_unique_for_overwrite<std::byte[]>(step * source.BlockBytes());
    for (std::uint64_t block = first; block < last; block += step) {
        source.Read(block, std::min(step, last - block), buffer.get());
    }
}

void TransformShare(const Shape& shape, std::uint64_t epochs) {
    const std::uint32_t length = std::bit_ceil(shape.window);
    const std::size_t lanes = Lanes<float>();
    const std::size_t bins = length / 2 + 1;
    const auto plan = PlanFor<float>(length);
    AlignedArray<float> samples(length * lanes), mean(2 * lanes), taper(length), scale(lanes),
        work(length * lanes), power(kBatchEpochs * bins * lanes);
    AlignedArray<double> sums(bins * lanes), squares(bins * lanes);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples[i] = static_cast<float>(i * 2654435761U % 4096);
    }
    std::fill_n(taper.data(), length, 1.0F);
    std::fill_n(scale.data(), lanes, 1.0F);
    TransformJob<float> job{plan.get(), samples.data(), mean.data(), taper.data(), length,
                            bins,       scale.data(),   work.data(), power.data(), nullptr};
    const std::uint64_t transforms = epochs * ((shape.sensors + lanes - 1) / lanes);
    for (std::uint64_t done = 0; done < transforms; done += kBatchEpochs) {
        const std::uint64_t count = std::min<std::uint64_t>(kBatchEpochs, transforms - done);
        for (std::uint64_t e = 0; e < count; ++e) {
            job.power = power.data() + e * bins * lanes;
            Transform(job);
        }
        AddBatch(Quantity::Value, power.data(), bins * lanes, count, bins * lanes, done, sums.data(),
                 squares.data());
    }
}

double Measure(const signal::RecordingData& data, unsigned threads) {
    const Shape shape = ShapeOf(data);
    const std::uint64_t blocks = data.source->BlockCount();
    std::vector<std::exception_ptr> errors(threads);
    const auto begin = std::chrono::steady_clock::now();
    {
        std::vector<std::jthread> workers;
        for (unsigned t = 0; t < threads; ++t) {
            workers.emplace_back([&, t] {
                try {
                    ReadShare(*data.source, blocks * t / threads, blocks * (t + 1) / threads);
                    TransformShare(shape, shape.epochs * (t + 1) / threads - shape.epochs * t / threads);
                } catch (...) {
                    errors[t] = std::current_exception();
                }
            });
        }
    }
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - begin;
    for (const std::exception_ptr& error : errors) {
        if (error) {
            std::rethrow_exception(error);
        }
    }
    return elapsed.count();
}

double Compute(const signal::RecordingData& data, unsigned threads) {
    const Shape shape = ShapeOf(data);
    EngineRequest request;
    for (std::size_t s = 0; s < data.signals.size() && request.sensors.size() < shape.sensors; ++s) {
        request.sensors.push_back({s, data.signals[s].gain, data.signals[s].offset});
    }
    request.window = shape.window;
    request.padded = std::bit_ceil(shape.window);
    request.bins = request.padded / 2 + 1;
    request.rate_hz = shape.window / 2.0;
    request.threads = threads;
    for (std::uint32_t i = 0; i < shape.window; ++i) {
        request.taper.push_back(0.5 - 0.5 * std::cos(2 * std::numbers::pi * i / shape.window));
    }
    for (std::uint64_t e = 0; e < shape.epochs; ++e) {
        request.epochs.push_back(static_cast<std::int64_t>(e * ((shape.window + 1) / 2)));
    }
    EngineResult result;
    const auto begin = std::chrono::steady_clock::now();
    Accumulate(*data.source, request, result, nullptr);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

} // namespace
} // namespace orvanta::spectral

int main(int argc, char** argv) {
    unsigned threads = std::max(1U, std::thread::hardware_concurrency());
    const bool numbered =
        argc == 3 && std::from_chars(argv[2], argv[2] + std::strlen(argv[2]), threads).ec == std::errc() &&
        threads > 0 && threads <= 256;
    if (argc != 2 && !numbered) {
        std::fputs("usage: engine_limit FILE [THREADS]\n", stderr);
        return 2;
    }
    try {
        const orvanta::signal::RecordingData data = orvanta::signal::ReadEdf(argv[1]);
        std::printf("limit_seconds %.6f\n", orvanta::spectral::Measure(data, threads));
        std::printf("engine_seconds %.6f\n", orvanta::spectral::Compute(data, threads));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "engine_limit: %s\n", error.what());
        return 1;
    }
}
