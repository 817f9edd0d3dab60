// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/traces/epoch_rows.h"

#include "spectra_contract/spect_macro_result.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvanta::spectrum_view {

namespace {

/// Fills \p values with one epoch's spectrum of a trace; empty when there is none.
void EpochSpectrum(const SpectMacroResult& analysis, const SpectrumSingle& spectrum, std::size_t epoch,
                   std::vector<double>& values) {
    if (const auto* ofChannel = dynamic_cast<const SpectrumChn*>(&spectrum)) {
        analysis.GetSpeCartoon(values, epoch, ofChannel->GetChn());
        return;
    }
    values.clear();
    const auto* ofSensor = dynamic_cast<const SpectrumSens*>(&spectrum);
    const SpectrumSingle* ofEpoch =
        ofSensor == nullptr ? nullptr : analysis.GetSpeCartoon(epoch, ofSensor->GetSensor());
    if (ofEpoch != nullptr) {
        ofEpoch->GetSpect(values);
    }
}

/// Mean of spectra, bin by bin, over those that have a number there.
class BinMeans {
public:
    explicit BinMeans(std::size_t bins) : sums_(bins), counts_(bins) {}

    void Add(const std::vector<double>& values) {
        for (std::size_t bin = 0; bin < std::min(values.size(), sums_.size()); ++bin) {
            if (std::isfinite(values[bin])) {
                sums_[bin] += values[bin];
                ++counts_[bin];
            }
        }
    }
    void MoveTo(std::vector<float>& rows) {
        for (std::size_t bin = 0; bin < sums_.size(); ++bin) {
            rows.push_back(counts_[bin] == 0 ? std::numeric_limits<float>::quiet_NaN()
                                             : static_cast<float>(sums_[bin] / counts_[bin]));
        }
        std::fill(sums_.begin(), sums_.end(), 0.0);
        std::fill(counts_.begin(), counts_.end(), 0U);
    }

private:
    std::vector<double> sums_;
    std::vector<unsigned> counts_;
};

} // namespace

std::vector<EpochGroup> GroupEpochs(const std::vector<SpectraOverTime::Span>& epochs, std::size_t mostRows) {
    std::vector<EpochGroup> groups;
    if (epochs.empty() || mostRows == 0) {
        return groups;
    }
    const double begin = epochs.front().begin_s;
    const double stretch = (epochs.back().end_s - begin) / static_cast<double>(mostRows);
    std::size_t last = 0;
    for (std::size_t i = 0; i < epochs.size(); ++i) {
        const double middle = (epochs[i].begin_s + epochs[i].end_s) / 2;
        const double place = stretch > 0 ? (middle - begin) / stretch : 0;
        const std::size_t row = place > 0 ? std::min(static_cast<std::size_t>(place), mostRows - 1) : 0;
        if (groups.empty() || row != last) {
            groups.push_back({i, i, epochs[i]});
        }
        groups.back().end = i + 1;
        groups.back().span.end_s = epochs[i].end_s;
        last = row;
    }
    return groups;
}

std::vector<SpectraOverTime::Span> EpochSpans(const SpectMacroResult& analysis, EEGFileInfoType& recording) {
    XTimeList list;
    analysis.GetEventList(&recording, list, nullptr);
    std::vector<SpectraOverTime::Span> spans;
    spans.reserve(list.size());
    for (const XTimeItem& item : list) {
        spans.push_back({item.Interval.GetBeginPtr()->Seconds(), item.Interval.GetEndPtr()->Seconds()});
    }
    return spans;
}

SpectraOverTime SpectraOf(const SpectMacroResult& analysis, const SpectrumSingle& spectrum,
                          const std::vector<EpochGroup>& groups) {
    SpectraOverTime spectra;
    spectra.bins = static_cast<std::size_t>(analysis.GetFFTSamples() / 2 + 1);
    spectra.values.reserve(groups.size() * spectra.bins);
    BinMeans means(spectra.bins);
    std::vector<double> values;
    for (const EpochGroup& group : groups) {
        for (std::size_t epoch = group.first; epoch < group.end; ++epoch) {
            EpochSpectrum(analysis, spectrum, epoch, values);
            means.Add(values);
        }
        means.MoveTo(spectra.values);
        spectra.rows.push_back(group.span);
    }
    return spectra;
}

} // namespace orvanta::spectrum_view
