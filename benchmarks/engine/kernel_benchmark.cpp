// SPDX-License-Identifier: GPL-3.0-or-later
// Real transforms of many sequences: ours, one in each lane, beside FFTW's planned batches. Both go from
// samples in memory to complex bins; ours also takes the mean off, tapers and squares. Items are transforms.
#include "host/spectral_data/engine/kernel/interleave.h"
#include "host/spectral_data/engine/kernel/moments.h"
#include "host/spectral_data/engine/kernel/transform.h"

#include <benchmark/benchmark.h>
#include <fftw3.h>

#include <vector>

namespace orvanta::spectral {
namespace {

/// Sequences that are transformed in one go, as many as the widest vectors have lanes.
constexpr int kBatch = 16;

template <class T>
T Sample(std::size_t i) {
    return static_cast<T>(i * 2654435761U % 4096) - 2048;
}

template <class T>
void Ours(benchmark::State& state) {
    const auto length = static_cast<std::uint32_t>(state.range(0));
    const std::size_t lanes = Lanes<T>();
    const std::size_t bins = length / 2 + 1;
    const auto plan = PlanFor<T>(length);
    AlignedArray<T> samples(length * lanes), mean(2 * lanes), taper(length), scale(lanes),
        work(length * lanes), power(bins * lanes);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples[i] = Sample<T>(i);
    }
    std::fill_n(taper.data(), length, T{1});
    std::fill_n(scale.data(), lanes, T{1});
    const TransformJob<T> job{plan.get(), samples.data(), mean.data(), taper.data(), length,
                              bins,       scale.data(),   work.data(), power.data(), nullptr};
    for (auto _ : state) {
        for (std::size_t done = 0; done < kBatch; done += lanes) {
            Transform(job);
        }
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * kBatch);
}
BENCHMARK(Ours<float>)->RangeMultiplier(4)->Range(64, 1 << 18);
BENCHMARK(Ours<double>)->RangeMultiplier(4)->Range(64, 1 << 18);

void FftwFloat(benchmark::State& state) {
    const int length = static_cast<int>(state.range(0));
    const int bins = length / 2 + 1;
    float* in = fftwf_alloc_real(static_cast<std::size_t>(length) * kBatch);
    fftwf_complex* out = fftwf_alloc_complex(static_cast<std::size_t>(bins) * kBatch);
    const fftwf_plan plan = fftwf_plan_many_dft_r2c(1, &length, kBatch, in, nullptr, 1, length, out, nullptr,
                                                    1, bins, FFTW_MEASURE);
    for (int i = 0; i < length * kBatch; ++i) {
        in[i] = Sample<float>(static_cast<std::size_t>(i));
    }
    for (auto _ : state) {
        fftwf_execute(plan);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * kBatch);
    fftwf_destroy_plan(plan);
    fftwf_free(in);
    fftwf_free(out);
}
BENCHMARK(FftwFloat)->RangeMultiplier(4)->Range(64, 1 << 18);

void FftwDouble(benchmark::State& state) {
    const int length = static_cast<int>(state.range(0));
    const int bins = length / 2 + 1;
    double* in = fftw_alloc_real(static_cast<std::size_t>(length) * kBatch);
    fftw_complex* out = fftw_alloc_complex(static_cast<std::size_t>(bins) * kBatch);
    const fftw_plan plan = fftw_plan_many_dft_r2c(1, &length, kBatch, in, nullptr, 1, length, out, nullptr, 1,
                                                  bins, FFTW_MEASURE);
    for (int i = 0; i < length * kBatch; ++i) {
        in[i] = Sample<double>(static_cast<std::size_t>(i));
    }
    for (auto _ : state) {
        fftw_execute(plan);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * kBatch);
    fftw_destroy_plan(plan);
    fftw_free(in);
    fftw_free(out);
}
BENCHMARK(FftwDouble)->RangeMultiplier(4)->Range(64, 1 << 18);

/// Stored samples to rows of lanes. Items are samples.
void Conversion(benchmark::State& state, signal::SampleFormat format) {
    constexpr std::size_t kTile = 128;
    constexpr std::size_t kSamples = 32 * kTile;
    const std::size_t lanes = Lanes<float>();
    const std::size_t width = BytesOf(format);
    const std::vector<std::byte> stored(lanes * kSamples * width, std::byte{37});
    AlignedArray<std::int32_t> tile(lanes * kTile);
    AlignedArray<float> rows(kSamples * lanes);
    AlignedArray<double> sums(kSamples / kRunRows * lanes);
    for (auto _ : state) {
        for (std::size_t at = 0; at < kSamples; at += kTile) {
            for (std::size_t lane = 0; lane < lanes; ++lane) {
                Decode(format, stored.data() + (lane * kSamples + at) * width, width, kTile,
                       tile.data() + lane * kTile);
            }
            Interleave(tile.data(), kTile, kTile, rows.data() + at * lanes, sums.data());
        }
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(lanes * kSamples));
}
BENCHMARK_CAPTURE(Conversion, Int16, signal::SampleFormat::Int16);
BENCHMARK_CAPTURE(Conversion, Int24, signal::SampleFormat::Int24);

/// A batch of epochs of 513 bins in every lane into the moments. Items are vectors of one epoch.
void Gathering(benchmark::State& state, Quantity quantity) {
    const std::size_t lanes = Lanes<float>();
    const std::size_t count = 513 * lanes;
    AlignedArray<float> powers(kBatchEpochs * count);
    AlignedArray<double> mean(count), m2(count);
    for (std::size_t i = 0; i < powers.size(); ++i) {
        powers[i] = Sample<float>(i) + 2049;
    }
    for (auto _ : state) {
        AddBatch(quantity, powers.data(), count, kBatchEpochs, count, 8, mean.data(), m2.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kBatchEpochs * 513));
}
BENCHMARK_CAPTURE(Gathering, Power, Quantity::Value);
BENCHMARK_CAPTURE(Gathering, Amplitude, Quantity::Root);
BENCHMARK_CAPTURE(Gathering, Logarithm, Quantity::Logarithm);

} // namespace
} // namespace orvanta::spectral
