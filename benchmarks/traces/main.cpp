// SPDX-License-Identifier: GPL-3.0-or-later
// traces_benchmark FOLDER: what pages of traces take, and what they would take at the least. Makes two files
// in FOLDER: an hour of 64 channels at 512 Hz (236 MB), and 2 GB of the same without contents, which take no
// room on the disk. The limit reads the hour's file (from the page cache) on one thread, a megabyte at a
// time, and looks for the least and greatest of each second's 16-bit samples, nothing else. Processor time of
// the thread that works.
#include "host/review/app/traces/pyramid_worker.h"
#include "host/review/app/traces/trace_store.h"
#include "host/signal_base/recording.h"
#include "tests/support/edf_file.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <numeric>
#include <random>
#include <string>
#include <thread>

namespace orvanta::review {
namespace {

constexpr std::size_t kChannels = 64;
constexpr std::size_t kRate = 512;
constexpr std::uint64_t kHour = 3600;
constexpr std::size_t kRecordBytes = 2 * kChannels * kRate;

std::string MakeFile(const std::filesystem::path& file, std::uint64_t seconds, bool withNoise) {
    test::EdfFile edf;
    edf.record_count = 0;
    edf.records = std::to_string(seconds);
    for (std::size_t channel = 0; channel < kChannels; ++channel) {
        test::EdfFileSignal signal;
        signal.label = "EEG " + std::to_string(channel + 1);
        signal.samples = kRate;
        edf.signals.push_back(signal);
    }
    std::ofstream out(file, std::ios::binary);
    const std::string header = edf.Bytes();
    out.write(header.data(), static_cast<std::streamsize>(header.size()));
    std::minstd_rand random(1);
    std::vector<std::int16_t> record(kRecordBytes / 2);
    for (std::uint64_t second = 0; withNoise && second < seconds; ++second) {
        for (std::int16_t& sample : record) {
            sample = static_cast<std::int16_t>(random() % 2001 - 1000);
        }
        out.write(reinterpret_cast<const char*>(record.data()), kRecordBytes);
    }
    out.close();
    std::filesystem::resize_file(file, header.size() + seconds * kRecordBytes);
    return file.string();
}

/// Of this thread's processor time, so that other programs do not count. In seconds.
double ProcessorTime() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

/// Median of five, in seconds.
double Time(const std::function<void()>& work) {
    std::vector<double> times;
    for (int round = 0; round < 5; ++round) {
        const double begin = ProcessorTime();
        work();
        times.push_back(ProcessorTime() - begin);
    }
    std::nth_element(times.begin(), times.begin() + 2, times.end());
    return times[2];
}

double LimitOf(const signal::BlockSource& source) {
    const std::uint64_t step = (std::uint64_t{1} << 20) / source.BlockBytes();
    std::vector<std::byte> bytes(step * source.BlockBytes());
    std::int64_t sum = 0;
    const double seconds = Time([&] {
        for (std::uint64_t block = 0; block < source.BlockCount(); block += step) {
            const std::uint64_t count = std::min(step, source.BlockCount() - block);
            source.Read(block, count, bytes.data());
            for (std::size_t run = 0; run < count * kChannels; ++run) {
                std::int16_t samples[kRate];
                std::memcpy(samples, bytes.data() + run * sizeof samples, sizeof samples);
                std::int16_t low = samples[0], high = samples[0];
                for (const std::int16_t sample : samples) {
                    low = std::min(low, sample);
                    high = std::max(high, sample);
                }
                sum += high - low;
            }
        }
    });
    return sum < 0 ? 0 : seconds; // so that it is not optimised away
}

void PrintPage(const char* name, double seconds, double target) {
    std::printf("  %-58s %8.2f ms  (target <= %g)\n", name, seconds * 1e3, target * 1e3);
}

std::vector<TraceChannel> Pairs(const EEGFileInfoType& recording) {
    std::vector<TraceChannel> lines = ChannelsOf(recording);
    for (std::size_t line = 0; line + 1 < lines.size(); ++line) {
        TraceTerm second = lines[line + 1].terms[0];
        second.weight = -1;
        lines[line].terms.push_back(second);
    }
    return lines;
}

std::vector<TraceChannel> AgainstTheAverage(const EEGFileInfoType& recording) {
    recording.GetTraceInfo()->SetMtg(*recording.GetMontageList()->Find("Average reference"));
    return ChannelsOf(recording);
}

void MeasurePages(const EEGFileInfoType& recording) {
    TraceStore store(recording.GetRecording());
    std::vector<std::size_t> all(kChannels);
    std::iota(all.begin(), all.end(), std::size_t{0});
    const auto page = [&](double start, double duration) {
        return Time([&] { store.Read({start, duration, 1600}, all); });
    };
    const TraceFilter usual{0.5, 70, 50};
    store.SetLines(Pairs(recording), {});
    PrintPage("10 s of 64 differences", page(1000, 10), 0.005);
    PrintPage("30 s of 64 differences", page(1000, 30), 0.015);
    while (store.Progress() < 1) {
        std::this_thread::yield();
    }
    PrintPage("the whole hour of 64 differences, from the pyramid", page(0, kHour), 0.005);
    PrintPage("5 min of 64 differences, from the pyramid", page(1000, 300), 0.005);
    store.SetLines(Pairs(recording), usual);
    PrintPage("10 s of 64 differences, 0.5 to 70 Hz, notch", page(1000, 10), 0.02);
    store.SetLines(Pairs(recording), {0.016, 0, 0});
    PrintPage("10 s of 64 differences, from 0.016 Hz", page(1000, 10), 0.1);
    store.SetLines(AgainstTheAverage(recording), {});
    PrintPage("10 s of 64 electrodes against their average", page(1000, 10), 0.005);
}

/// Wall time until a pyramid under way is given up, at worst of twenty.
void MeasureGivingUp(const EEGFileInfoType& recording) {
    double worst = 0;
    for (int round = 0; round < 20; ++round) {
        PyramidWorker worker;
        worker.Start(std::make_shared<Pyramid>(recording.GetRecording(), Pairs(recording),
                                               TraceFilter{0.5, 70, 50}, kPyramidBytes));
        std::this_thread::sleep_for(std::chrono::milliseconds(10 + round));
        const auto begin = std::chrono::steady_clock::now();
        worker.Stop();
        worst =
            std::max(worst, std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    }
    PrintPage("giving up a pyramid under way, worst of 20, wall time", worst, 0.05);
}

void MeasurePyramid(const char* name, const EEGFileInfoType& recording,
                    const std::vector<TraceChannel>& lines, const TraceFilter& filter, double limit,
                    double target) {
    const double seconds = Time([&] {
        Pyramid pyramid(recording.GetRecording(), lines, filter, kPyramidBytes);
        pyramid.Build({}, [] {});
    });
    std::printf("  %-58s %8.3f s   ours / limit = %.2f (target <= %g)\n", name, seconds, seconds / limit,
                target);
}

void Run(const std::filesystem::path& folder) {
    const std::string large = MakeFile(folder / "traces_2gb.edf", 2'000'000'000 / kRecordBytes, false);
    const double first = Time([&] {
        const auto recording = signal::OpenRecording(large);
        TraceStore store(recording->GetRecording());
        store.SetLines(ChannelsOf(*recording), {0.5, 70, 50});
        std::vector<std::size_t> all(kChannels);
        std::iota(all.begin(), all.end(), std::size_t{0});
        store.Read({0, 10, 1600}, all);
    });
    std::printf("pages of 1600 columns, 64 channels at 512 Hz\n");
    PrintPage("opening 2 GB and its first page of 10 s, filtered", first, 0.1);

    const auto recording = signal::OpenRecording(MakeFile(folder / "traces_hour.edf", kHour, true));
    MeasurePages(*recording);

    std::printf("\npyramid of an hour, 64 channels at 512 Hz, one thread\n");
    const double limit = LimitOf(recording->GetRecording()->Source());
    std::printf("  %-58s %8.3f s\n", "limit: reading, least and greatest of each second", limit);
    recording->GetTraceInfo()->SetMtg(*recording->GetMontageList()->GetUniMtg());
    MeasurePyramid("as recorded", *recording, ChannelsOf(*recording), {}, limit, 6);
    MeasurePyramid("differences", *recording, Pairs(*recording), {}, limit, 6);
    MeasurePyramid("differences, 0.5 to 70 Hz, notch", *recording, Pairs(*recording), {0.5, 70, 50}, limit,
                   20);
    MeasurePyramid("against the average", *recording, AgainstTheAverage(*recording), {}, limit, 6);
    MeasureGivingUp(*recording);
}

} // namespace
} // namespace orvanta::review

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: traces_benchmark FOLDER\n", stderr);
        return 2;
    }
    try {
        orvanta::review::Run(argv[1]);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "traces_benchmark: %s\n", error.what());
        return 1;
    }
}
