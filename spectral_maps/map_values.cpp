// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectral_maps/map_values.h"

#include "spectra_contract/spect_macro_result.h"

namespace orvanta::spectral_maps {

double MeasureOf(const SpectrumSingle* spectrum, const SPECT::PlotSet& plotSet) {
    return spectrum == nullptr ? 0.0
                               : spectrum->GetMeasure(plotSet.SpectralBand,
                                                      static_cast<SPECT::Meas::Type>(plotSet.SpectralMeas));
}

std::vector<double> MeanValues(const SpectMacroResult& analysis, const SensorList& sensors,
                               const SPECT::PlotSet& plotSet) {
    std::vector<double> values;
    for (const SensorType* sensor : sensors) {
        values.push_back(MeasureOf(analysis.GetSpectrum(sensor), plotSet));
    }
    return values;
}

std::vector<double> EpochValues(const SpectMacroResult& analysis, std::uint64_t epoch,
                                const SensorList& sensors, const SPECT::PlotSet& plotSet) {
    std::vector<double> values;
    for (const SensorType* sensor : sensors) {
        values.push_back(MeasureOf(analysis.GetSpeCartoon(epoch, sensor), plotSet));
    }
    return values;
}

} // namespace orvanta::spectral_maps
