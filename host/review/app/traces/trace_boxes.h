// SPDX-License-Identifier: GPL-3.0-or-later
// The lists to choose from in the trace view's tool bar.
#pragma once

#include "host/review/app/traces/trace_state.h"
#include "spectra_contract/montage.h"

#include <QPointer>

#include <string>
#include <vector>

class QComboBox;

namespace owl {
class GadgetBar;
}

namespace orvanta::review {

class TraceBoxes {
public:
    void Create(owl::GadgetBar& bar);
    /// Shows what is set; a value that is not on a list is added to it.
    void Show(double pageLength, double gain, const std::string& gainUnit, const TraceFilter& filter);
    void ShowMontages(const MontageList& montages, const std::string& current);

    // What an entry stands for.
    double PageLengthAt(std::size_t index) const { return At(pageLengths_, index); }
    double GainAt(std::size_t index) const { return At(gains_, index); }
    double LowCutAt(std::size_t index) const { return At(lowCuts_, index); }
    double HighCutAt(std::size_t index) const { return At(highCuts_, index); }
    double NotchAt(std::size_t index) const { return At(notches_, index); }

private:
    static double At(const std::vector<double>& values, std::size_t index) {
        return index < values.size() ? values[index] : 0;
    }

    QPointer<QComboBox> montage_, pageLength_, gain_, lowCut_, highCut_, notch_;
    std::vector<double> pageLengths_, gains_, lowCuts_, highCuts_, notches_;
};

} // namespace orvanta::review
