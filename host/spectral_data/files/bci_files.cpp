// SPDX-License-Identifier: GPL-3.0-or-later
// Saving the results of a regression and the epochs behind them.
#include "host/platform/atomic_file.h"
#include "host/spectral_data/files/bci_text.h"
#include "host/spectral_data/results/bci_regression.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/sensor.h"

#include <algorithm>
#include <span>
#include <vector>

namespace spectral = orvanta::spectral;

namespace {

constexpr std::size_t kPieceBytes = std::size_t{1} << 20;

/// Each sensor once, in the order of the results.
std::vector<const SensorType*> SensorsOf(const std::list<BCIReg>& results) {
    std::vector<const SensorType*> sensors;
    for (const BCIReg& result : results) {
        if (std::ranges::find(sensors, result.Sensor) == sensors.end()) {
            sensors.push_back(result.Sensor);
        }
    }
    return sensors;
}

/// Ends the walk over the epochs from within.
struct Cancelled {};

/// Writes epochs in pieces and shows how much of the work is done.
class EpochWriter {
public:
    EpochWriter(orvanta::platform::AtomicFile& file, GenericProgress* progress, std::uint64_t epochs)
        : file_(file), progress_(progress), epochs_(epochs) {}

    /// \throws Cancelled
    void Write(const spectral::ContrastGroup& group, const SensorType& sensor) {
        const auto trace = group.analysis->Row(&sensor);
        if (!trace) {
            return;
        }
        std::uint64_t epoch = 0;
        group.analysis->Epochs().ForEach(trace->row, [&](std::span<const float> power) {
            spectral::AppendFullSpectraRow(text_, group, epoch++, sensor.GetName(), power);
            ++done_;
            if (text_.size() >= kPieceBytes) {
                Flush();
            }
        });
    }
    /// \throws Cancelled
    void Flush() {
        if (progress_ != nullptr) {
            progress_->SetPosition(static_cast<double>(done_) / static_cast<double>(epochs_));
            if (progress_->IsCancelled()) {
                throw Cancelled();
            }
        }
        file_.Write(text_);
        text_.clear();
    }

private:
    orvanta::platform::AtomicFile& file_;
    GenericProgress* progress_;
    std::uint64_t epochs_;
    std::uint64_t done_ = 0;
    std::string text_;
};

} // namespace

void SaveBCIRegressions(const std::string& path, const std::list<BCIReg>& results) {
    orvanta::platform::WriteFileAtomically(path, spectral::FormatBCIRegressions(results));
}

bool SaveBCIFullSpectra(const std::string& path, const std::list<BCIReg>& results,
                        const std::list<SpectMacroResult*>& analyses, GenericProgress* progress) {
    const std::vector<const SensorType*> sensors = SensorsOf(results);
    const std::vector<spectral::ContrastGroup> groups = spectral::Comparable(spectral::GroupsOf(analyses));
    orvanta::platform::AtomicFile file(path);
    std::uint64_t epochs = 0;
    for (const spectral::ContrastGroup& group : groups) {
        epochs += group.analysis->EpochCount() * sensors.size();
    }
    if (!groups.empty()) {
        file.Write(spectral::FullSpectraHead(*groups.front().analysis));
    }
    try {
        EpochWriter writer(file, progress, std::max<std::uint64_t>(1, epochs));
        for (const spectral::ContrastGroup& group : groups) {
            for (const SensorType* sensor : sensors) {
                writer.Write(group, *sensor);
            }
        }
        writer.Flush();
    } catch (const Cancelled&) {
        return false;
    }
    file.Commit();
    return true;
}
