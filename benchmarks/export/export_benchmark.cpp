// SPDX-License-Identifier: GPL-3.0-or-later
// The text of single epochs, in bytes of text a second on one core. First the numbers alone, in our way, the
// standard library's and the C library's: their ratio holds on every machine. Then whole exports of 64
// sensors at 256 Hz in windows of 2 s, half overlapping, into a file in the temporary folder: with epochs
// that were kept, and with epochs that are computed again on one thread.
#include "host/spectral_data/files/general_number.h"
#include "spectra_contract/spect_macro_result.h"
#include "spectra_contract/spectra_export.h"
#include "tests/support/memory_source.h"
#include "tests/support/temp_folder.h"

#include "host/signal_base/recording.h"
#include "host/spectral_data/compute_options.h"

#include <benchmark/benchmark.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <random>
#include <vector>

namespace {

using namespace orvanta;

constexpr std::size_t kSensors = 64;
constexpr double kRate = 256;
constexpr std::size_t kSeconds = 300;

/// Powers of an epoch as they occur: falling with the frequency, scattered as chi squared, 32-bit.
std::vector<double> Powers(std::size_t count) {
    std::mt19937 random(1);
    std::chi_squared_distribution<double> scatter(2);
    std::vector<double> powers;
    for (std::size_t i = 0; i < count; ++i) {
        const double hz = 0.5 * static_cast<double>(1 + i % 255);
        powers.push_back(static_cast<float>(40 / (1 + hz) * scatter(random)));
    }
    return powers;
}

/// \param write puts a number at a place and answers the end of its text
template <typename Write>
void Numbers(benchmark::State& state, const Write& write) {
    constexpr std::size_t kCount = std::size_t{1} << 16, kLongest = 32;
    const std::vector<double> powers = Powers(kCount);
    std::vector<char> text(kCount * kLongest);
    std::int64_t bytes = 0;
    for ([[maybe_unused]] const auto round : state) {
        char* out = text.data();
        for (const double power : powers) {
            out = write(out, power);
            *out++ = '\t';
        }
        benchmark::DoNotOptimize(text.data());
        bytes += out - text.data();
    }
    state.SetBytesProcessed(bytes);
}

void NumbersAsWeWrite(benchmark::State& state) {
    Numbers(state, [](char* out, double value) { return spectral::WriteGeneral(out, value); });
}
BENCHMARK(NumbersAsWeWrite);

void NumbersByToChars(benchmark::State& state) {
    Numbers(state, [](char* out, double value) {
        return std::to_chars(out, out + 32, value, std::chars_format::general, 6).ptr;
    });
}
BENCHMARK(NumbersByToChars);

void NumbersBySnprintf(benchmark::State& state) {
    Numbers(state, [](char* out, double value) { return out + std::snprintf(out, 32, "%.6g", value); });
}
BENCHMARK(NumbersBySnprintf);

std::unique_ptr<EEGFileInfoType> Recording() {
    std::mt19937 random(2);
    std::normal_distribution<double> noise(0, 20);
    std::vector<test::MadeSignal> signals;
    for (std::size_t i = 0; i < kSensors; ++i) {
        test::MadeSignal& signal = signals.emplace_back();
        signal.label = "E" + std::to_string(i + 1);
        signal.rate_hz = kRate;
        double value = 0;
        for (std::size_t sample = 0; sample < kSeconds * static_cast<std::size_t>(kRate); ++sample) {
            value = 0.95 * value + noise(random);
            signal.values.push_back(value);
        }
    }
    return signal::MakeRecording(test::MakeData(signals));
}

void WholeExport(benchmark::State& state, bool kept) {
    const auto recording = Recording();
    SpectMacroResult analysis(SpectraMacro(), recording.get(), nullptr);
    spectral::ComputeOptions options;
    options.threads = 1;
    options.channels = false;
    options.store_epochs = kept;
    analysis.SetComputeOptions(options);
    analysis.Compute(nullptr);
    const test::TempFolder folder;
    const std::string file = folder.Path("export.txt");
    std::int64_t bytes = 0;
    for ([[maybe_unused]] const auto round : state) {
        WriteSpectraExport(file, {&analysis, {&analysis}}, nullptr);
        bytes += static_cast<std::int64_t>(std::filesystem::file_size(file));
    }
    state.SetBytesProcessed(bytes);
}
BENCHMARK_CAPTURE(WholeExport, Kept, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WholeExport, ComputedAgain, false)->Unit(benchmark::kMillisecond);

} // namespace
