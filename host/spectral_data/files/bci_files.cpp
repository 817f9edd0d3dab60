// SPDX-License-Identifier: GPL-3.0-or-later
// Saving the results of a regression and the epochs behind them.
#include "host/platform/atomic_file.h"
#include "host/spectral_data/files/bci_text.h"
#include "host/spectral_data/results/bci_regression.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/sensor.h"

#include <algorithm>
#include <string>
#include <utility>
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

/// Writes epochs in pieces and shows how much of the work is done.
class EpochWriter {
public:
    EpochWriter(orvanta::platform::AtomicFile& file, GenericProgress* progress, std::uint64_t epochs)
        : file_(file), progress_(progress), epochs_(epochs) {}

    /// All epochs of an analysis, one after the other. \return false when cancelled
    bool Write(const spectral::ContrastGroup& group, const std::vector<const SensorType*>& sensors) {
        std::vector<std::pair<const SensorType*, std::uint32_t>> rows;
        std::uint32_t count = 0;
        for (const SensorType* sensor : sensors) {
            if (const auto trace = group.analysis->Row(sensor)) {
                rows.emplace_back(sensor, trace->row);
                count = std::max(count, trace->row + 1);
            }
        }
        const spectral::EpochSpectra& spectra = group.analysis->Epochs();
        return spectra.ForEachBlock(count, [&](std::uint64_t first, std::uint64_t end) {
            for (std::uint64_t epoch = first; epoch < end; ++epoch) {
                for (const auto& [sensor, row] : rows) {
                    spectral::AppendFullSpectraRow(text_, group, epoch, sensor->GetName(),
                                                   spectra.Power(epoch, row));
                }
                Flush(kPieceBytes);
            }
            done_ += end - first;
            return GoesOn();
        });
    }
    /// Hands on what is written when it is this much.
    void Flush(std::size_t bytes = 0) {
        if (text_.size() >= bytes) {
            file_.Write(text_);
            text_.clear();
        }
    }

private:
    bool GoesOn() const {
        if (progress_ == nullptr) {
            return true;
        }
        progress_->SetPosition(static_cast<double>(done_) / static_cast<double>(epochs_));
        return !progress_->IsCancelled();
    }

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
        epochs += group.analysis->EpochCount();
    }
    if (!groups.empty()) {
        file.Write(spectral::FullSpectraHead(*groups.front().analysis));
    }
    EpochWriter writer(file, progress, epochs);
    for (const spectral::ContrastGroup& group : groups) {
        if (!writer.Write(group, sensors)) {
            return false;
        }
    }
    writer.Flush();
    file.Commit();
    return true;
}
