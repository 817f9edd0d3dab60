// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/spectra_export.h"

#include "host/spectral_data/files/general_number.h"
#include "host/spectral_data/files/tab_file.h"
#include "host/spectral_data/results/analysis.h"
#include "host/spectral_data/results/spectrum_impl.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/sensor.h"
#include "spectra_contract/spect_globals.h"
#include "spectra_contract/spect_macro_result.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace {

using orvanta::spectral::Analysis;
using orvanta::spectral::EpochValue;
using orvanta::spectral::TabFile;
using orvanta::spectral::TraceRow;

/// Bins 1 to N/2 - 1; N/2 counts the first of them that is left out.
std::uint64_t BinsOf(const SpectMacroResult& analysis) {
    return std::max<std::uint64_t>(analysis.GetFFTSamples() / 2, 1) - 1;
}

SensorList ColumnsOf(const SpectraExport& what) {
    SensorList sensors = what.columns == nullptr ? SensorList() : what.columns->GetSensors();
    sensors.remove_if([](const SensorType* sensor) { return sensor->IsVirtual() || !sensor->IsSignal(); });
    return sensors;
}

std::uint64_t EpochsOf(const SpectraExport& what) {
    std::uint64_t epochs = 0;
    for (const SpectMacroResult* analysis : what.analyses) {
        epochs += analysis->GetSpeCartoonChnLen();
    }
    return epochs;
}

std::string ContrastText(const SpectMacroResult& analysis) {
    return std::to_string(analysis.GetMacro().GetContrastValue());
}

void WriteHeader(const SpectraExport& what, const SensorList& sensors, TabFile& file) {
    if (what.name) {
        file.Field("Macro");
    }
    if (what.contrast) {
        file.Field("Contrast");
    }
    for (const SensorType* sensor : sensors) {
        for (std::uint64_t k = 1; k <= BinsOf(*what.columns); ++k) {
            char frequency[orvanta::spectral::kGeneralWidth];
            const char* const end = orvanta::spectral::WriteGeneral(
                frequency, what.columns->GetResolutionHz() * static_cast<double>(k));
            std::string field = sensor->GetName() + '(';
            file.Field(field.append(std::string_view(frequency, end)) += ')');
        }
    }
    file.EndLine();
}

/// The lines of one analysis.
class AnalysisLines {
public:
    AnalysisLines(const SpectraExport& what, const SensorList& sensors, const SpectMacroResult& analysis)
        : name_(what.name ? std::optional(analysis.GetName()) : std::nullopt),
          contrast_(what.contrast ? std::optional(ContrastText(analysis)) : std::nullopt),
          analysis_(analysis.GetAnalysis()), values_(BinsOf(analysis)) {
        for (const SensorType* sensor : sensors) {
            rows_.push_back(analysis_ ? analysis_->Row(sensor) : std::nullopt);
        }
    }

    /// \param advance told of epochs that are written; answers whether to go on
    template <typename Advance>
    bool WriteTo(TabFile& file, const Advance& advance) {
        if (!analysis_) {
            return true;
        }
        const auto sensors = static_cast<std::uint32_t>(analysis_->Sensors().size());
        return analysis_->Epochs().ForEachBlock(sensors, [&](std::uint64_t first, std::uint64_t last) {
            for (std::uint64_t epoch = first; epoch < last; ++epoch) {
                WriteLine(file, epoch);
            }
            return advance(last - first);
        });
    }

private:
    void WriteLine(TabFile& file, std::uint64_t epoch) {
        if (name_) {
            file.Field(*name_);
        }
        if (contrast_) {
            file.Field(*contrast_);
        }
        for (const std::optional<TraceRow>& row : rows_) {
            if (row) {
                const std::span<const float> power = analysis_->Epochs().Power(epoch, row->row);
                std::transform(power.begin() + 1, power.begin() + 1 + std::ssize(values_), values_.begin(),
                               [this](float value) { return EpochValue(entity_, value); });
                file.Numbers(values_);
            } else {
                std::for_each(values_.begin(), values_.end(), [&](double) { file.Field(""); });
            }
        }
        file.EndLine();
    }

    const std::optional<std::string> name_, contrast_;
    const std::shared_ptr<const Analysis> analysis_;
    const SPECT::Entity::Type entity_ = SPECT::GetGlobals().GetMeasEntity();
    std::vector<std::optional<TraceRow>> rows_; ///< of the columns' sensors
    std::vector<double> values_;                ///< of one sensor
};

TabFile Open(const std::string& path) {
    try {
        return TabFile(path);
    } catch (const std::runtime_error& error) {
        throw ExportNotOpened(error.what());
    }
}

} // namespace

bool WriteSpectraExport(const std::string& path, const SpectraExport& what, GenericProgress* progress) {
    TabFile file = Open(path);
    const SensorList sensors = ColumnsOf(what);
    const auto all = static_cast<double>(EpochsOf(what));
    std::uint64_t done = 0;
    const auto advance = [&](std::uint64_t epochs) {
        done += epochs;
        if (progress != nullptr) {
            progress->SetPosition(static_cast<double>(done) / all);
        }
        return progress == nullptr || !progress->IsCancelled();
    };
    if (what.header) {
        WriteHeader(what, sensors, file);
    }
    for (const SpectMacroResult* analysis : what.analyses) {
        if (!AnalysisLines(what, sensors, *analysis).WriteTo(file, advance)) {
            return false;
        }
    }
    file.Commit();
    return true;
}

std::uint64_t EstimateSpectraExport(const SpectraExport& what) {
    constexpr std::uint64_t kValue = 9, kTitle = 11, kName = 6; // characters with their tab, as a rule
    const std::uint64_t sensors = ColumnsOf(what).size();
    std::uint64_t bytes = 0;
    if (what.header) {
        bytes += (what.name ? kName : 0) + (what.contrast ? std::string_view("Contrast\t").size() : 0) + 1;
        bytes += what.columns == nullptr ? 0 : sensors * BinsOf(*what.columns) * kTitle;
    }
    for (const SpectMacroResult* analysis : what.analyses) {
        std::uint64_t line = sensors * BinsOf(*analysis) * kValue + 1;
        line += what.name ? analysis->GetName().size() + 1 : 0;
        line += what.contrast ? ContrastText(*analysis).size() + 1 : 0;
        bytes += line * analysis->GetSpeCartoonChnLen();
    }
    return bytes;
}
