// SPDX-License-Identifier: GPL-3.0-or-later
// Enumerations and plain records shared by the spectral data library and its users.
#pragma once

#include "spectra_contract/api.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>

class SensorType;

namespace Layout {
/// How traces are arranged.
enum class Mode : int { Scalp = 1, Grid = 2 };
} // namespace Layout

namespace SPECT {

namespace Data {
/// What the spectrum view shows.
enum class Mode : int { Mean = 1, TimeFrequency = 2, CSA = 3 };
} // namespace Data

namespace Entity {
/// The measured quantity.
enum class Type : int {
    Amplitude = 0, ///< µV/√Hz
    Power = 1,     ///< µV²/Hz, one-sided density
    Coherence = 2, ///< 0 to 1, of a channel's two electrodes
    Phase = 3,     ///< radians, of a channel's two electrodes
};
inline constexpr unsigned Count = 4;
} // namespace Entity

namespace Meas {
/// A band measure.
enum class Type : int { Abs = 0, Mean = 1, Rel = 2, PeakF = 3, MeanF = 4, Peak = 5, SEF95 = 6, CV = 7 };
inline constexpr unsigned Count = 8;
} // namespace Meas

/// How the mean curve is weighted for display.
enum class Normalisation : int { None = 0, ByF = 1, BySqrtF = 2, ByLnF = 3, ByLog10F = 4, Db = 5 };

inline constexpr unsigned BandCount = 8;

/// A band counts only when it is wider than 0.01 Hz.
constexpr bool IsBandDefined(double lo, double hi) {
    return hi - lo > 0.01;
}

/// A frequency band, low <= f < high in Hz.
struct Band {
    double lo = 0;
    double hi = 0;
    char name[64] = {};
    bool selected = true;

    bool IsDefined() const { return IsBandDefined(lo, hi); }
};

/// A range of frequencies in Hz.
struct FrequencyRange {
    double bottom = 0;
    double top = 0;

    bool operator==(const FrequencyRange&) const = default;
};

/// The range that data sampled at \p rate (Hz) can fill: the top at most half the rate, the bottom at most
/// the top and at least 0.
constexpr FrequencyRange ClampFrequencyRange(double bottom, double top, double rate) {
    const double limit = std::min(top, rate * 0.5);
    return {std::max(0.0, std::min(bottom, limit)), limit};
}

/// Axis ranges of one entity: frequency in Hz for X, the entity's unit for Y.
struct Scale {
    double MinY = 0;
    double MaxY = 10;
    double MinX = 0;
    double MaxX = 32;
    bool AutoScale = true;

    bool operator==(const Scale&) const = default;
};

/// What one map shows.
struct PlotSet {
    std::int32_t SpectralMeas = 0;
    std::int32_t SpectralBand = 0;
    double LoScale = 0.0;
    double HiScale = 50.0;
    bool bAutoScale = true;
    bool bZeroMin = false;

    bool operator==(const PlotSet&) const = default;
};

} // namespace SPECT

/// What the user says of a saved file.
struct SpectralComments {
    std::string protocol1, protocol2, protocol3;
    std::string code1, code2, code3;
    std::string comment;
};

/// Coherence and phase of one bin.
class SpectSample {
public:
    SpectSample() = default; ///< not computable
    SpectSample(double coherence, double phase) : coherence_(coherence), phase_(phase) {}
    /// Magnitude, 0 to 1; NaN when not computable.
    double GetCohM() const { return coherence_; }
    /// Phase in radians, -π to π; NaN when not computable.
    double GetCohP() const { return phase_; }

private:
    double coherence_ = std::numeric_limits<double>::quiet_NaN();
    double phase_ = std::numeric_limits<double>::quiet_NaN();
};

/// One row of the regression of contrast values on log10 power.
struct BCIReg {
    const SensorType* Sensor = nullptr;
    double FreqHz = 0;
    double R = 0; ///< correlation
    double K = 0; ///< slope
    double M = 0; ///< intercept
    std::uint64_t Count = 0;
};
