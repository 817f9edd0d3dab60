// SPDX-License-Identifier: GPL-3.0-or-later
// What the painters of a slot are given.
#pragma once

#include "host/toolkit/dc.h"
#include "host/toolkit/geometry.h"
#include "spectra_contract/spectra_types.h"
#include "spectrum_view/painting/bands.h"
#include "spectrum_view/painting/frequency_axis.h"
#include "spectrum_view/painting/vertical_range.h"

#include <string>
#include <vector>

namespace orvanta::spectrum_view {

/// Which parts of a plot are shown.
struct PlotFlags {
    bool points = true;
    bool lines = true; ///< drop lines
    bool sd = false;
    bool labels = true;
    bool axesText = true;

    bool operator==(const PlotFlags&) const = default;
};

/// What every slot has, whatever it shows.
struct SlotFrame {
    owl::TRect slot;
    std::string label;      ///< over the plot
    std::string notice;     ///< one line saying why there is nothing to show; empty when there is something
    std::string unit;       ///< of the values; empty for none
    owl::TFont font;        ///< of all texts
    VerticalRange vertical; ///< undrawable: only the frame is drawn
    PlotFlags flags;
    owl::TRect box{}; ///< where a measures box will lie (MeasuresBoxRect); no text is put there
};

/// One analysis' spectrum of the trace, per bin from bin 0.
struct PlotCurve {
    FrequencyAxis axis;
    std::vector<PlotBand> bands; ///< on this analysis' bins
    std::vector<double> values;  ///< in the shown unit (phase in degrees where asked for); NaN not computable
    std::vector<double> sd;      ///< as values; empty when not shown
    owl::TColor color = 0;
};

/// A mean plot.
struct PlotInput {
    SlotFrame frame;
    std::vector<PlotCurve> curves; ///< main, then secondary; empty for a slot without a spectrum
    SPECT::Normalisation normalisation = SPECT::Normalisation::None;
    // Of main against secondary, on the bins of main; empty when there are none.
    std::vector<double> p;
    double pThreshold = 0.05; ///< bins with p below it are marked
    std::vector<double> ratio;
    std::string ratioName; ///< in the legend
};

/// Spectra of consecutive stretches of the recording, oldest first.
struct SpectraOverTime {
    /// Where a row's epochs lie, seconds since the recording's start.
    struct Span {
        double begin_s = 0;
        double end_s = 0;
    };
    std::size_t bins = 0;      ///< values per row
    std::vector<float> values; ///< row by row; NaN not computable
    std::vector<Span> rows;    ///< between two rows there may be a gap

    std::span<const float> Row(std::size_t row) const { return std::span(values).subspan(row * bins, bins); }
};

/// A compressed spectral array or a time/frequency plot.
struct OverTimeInput {
    SlotFrame frame;
    FrequencyAxis axis;
    std::vector<PlotBand> bands;
    SpectraOverTime spectra; ///< no row for a slot without a spectrum
    owl::TColor color = 0;   ///< of the trace
    double begin_s = 0;      ///< the time axis, seconds since the recording's start
    double end_s = 0;
    double startOfDay_s = 0; ///< clock time of the recording's start, seconds since midnight; 0 when unknown
};

} // namespace orvanta::spectrum_view
