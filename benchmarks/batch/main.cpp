// SPDX-License-Identifier: GPL-3.0-or-later
// batch_benchmark FILE FOLDER keep|read: time, reading and memory of a batch as the spectrum view saves it
// with one key: windows of 1, 2 and 4 s, half overlapping, 4 tapers, 5 kinds of events of 48 s in turn, a
// file of all spectra for each of the 60 settings. "keep" keeps the samples in memory meanwhile, as the view
// does.
#include "host/signal_base/recording.h"
#include "spectra_contract/events.h"
#include "spectra_contract/spect_macro_result.h"
#include "spectra_contract/spectra_macro.h"

#include <chrono>
#include <cstdio>
#include <exception>
#include <fstream>
#include <string>

#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr double kEventSeconds = 48;
constexpr int kKinds = 5;
constexpr double kMega = 1e6;

double Now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// Bytes that this process has read with system calls, from the disk or from the page cache.
double BytesRead() {
    std::ifstream io("/proc/self/io");
    std::string name;
    double bytes = 0;
    io >> name >> bytes;
    return bytes;
}

double Resident() {
    std::ifstream status("/proc/self/statm");
    double pages = 0;
    status >> pages >> pages;
    return pages * static_cast<double>(sysconf(_SC_PAGESIZE));
}

double PeakResident() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024;
}

void AddEvents(EEGFileInfoType& recording) {
    const double end = recording.GetRecording()->Time().Duration();
    int kind = 0;
    for (double begin = 0; begin + kEventSeconds <= end; begin += kEventSeconds) {
        const std::string label = "kind " + std::to_string(kind++ % kKinds + 1);
        recording.GetEventsManager()->Add(
            {label,
             EventClass::State,
             {XTime::FromSeconds(begin), XTime::FromSeconds(begin + kEventSeconds)}});
    }
}

void Run(const std::string& file, const std::string& folder, bool keep) {
    const auto recording = orvanta::signal::OpenRecording(file);
    AddEvents(*recording);
    SpectMacroResult result(SpectraMacro(), recording.get(), nullptr);
    result.GetMacro().SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::ByStateEvents);

    const double readBefore = BytesRead();
    const auto kept = keep ? recording->KeepSamples() : nullptr;
    double computing = 0, saving = 0, afterFirst = 0;
    int files = 0;
    for (const double seconds : {1.0, 2.0, 4.0}) {
        result.SetFFTSeconds(seconds);
        for (const char* window : {"Rectangular", "Hamming", "Hanning", "Triangular"}) {
            result.SetDSPWindowStr(window);
            for (int kind = 1; kind <= kKinds; ++kind) {
                const std::string label = "kind " + std::to_string(kind);
                result.GetMacro().SetAcceptStateList({label});
                const double begun = Now();
                result.ResetData();
                result.Compute(nullptr);
                const double computed = Now();
                const std::string name =
                    folder + "/" + label + "_" + window + "_" + std::to_string(int(seconds)) + ".xml";
                if (!result.SaveSpectra(nullptr, recording.get(), name.c_str(), nullptr)) {
                    std::fprintf(stderr, "%s: not written\n", name.c_str());
                }
                computing += computed - begun;
                saving += Now() - computed;
                if (++files % 20 == 1) {
                    afterFirst = Resident(); // of this length: longer windows have longer spectra
                }
            }
        }
    }
    std::printf("files %d  computing %.2f s  saving %.2f s  read %.1f MB\n", files, computing, saving,
                (BytesRead() - readBefore) / kMega);
    std::printf(
        "resident after the first file of the last length %.1f MB, after the last %.1f MB, peak %.1f MB\n",
        afterFirst / kMega, Resident() / kMega, PeakResident() / kMega);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("usage: batch_benchmark FILE FOLDER keep|read\n", stderr);
        return 2;
    }
    try {
        Run(argv[1], argv[2], std::string(argv[3]) == "keep");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
