// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/results/names.h"

#include <array>

namespace orvanta::spectral {

namespace {

constexpr std::array<const char*, SPECT::Entity::Count> kEntityNames = {"Amplitude", "Power", "Coherence",
                                                                        "Phase"};
constexpr std::array<const char*, SPECT::Entity::Count> kEntityUnits = {"µV/√Hz", "µV²/Hz", "", "rad"};
/// Of the measure "Abs", by entity.
constexpr std::array<const char*, SPECT::Entity::Count> kAbsUnits = {"µV", "µV²", "", "rad"};
constexpr std::array<const char*, SPECT::Meas::Count> kMeasureNames = {"Abs",    "Mean", "Rel",   "Peak F",
                                                                       "Mean F", "Peak", "SEF95", "CV"};

template <std::size_t Count, typename Enumeration>
std::string At(const std::array<const char*, Count>& texts, Enumeration index) {
    const auto i = static_cast<std::size_t>(index);
    return i < Count ? texts[i] : "";
}

} // namespace

std::string EntityName(SPECT::Entity::Type entity) {
    return At(kEntityNames, entity);
}

std::string EntityUnit(SPECT::Entity::Type entity) {
    return At(kEntityUnits, entity);
}

std::string MeasureName(SPECT::Meas::Type measure) {
    return At(kMeasureNames, measure);
}

std::string MeasureUnit(SPECT::Meas::Type measure, SPECT::Entity::Type entity) {
    switch (measure) {
    case SPECT::Meas::Type::Abs:
        return At(kAbsUnits, entity);
    case SPECT::Meas::Type::Mean:
    case SPECT::Meas::Type::Peak:
        return EntityUnit(entity);
    case SPECT::Meas::Type::Rel:
    case SPECT::Meas::Type::CV:
        return "%";
    case SPECT::Meas::Type::PeakF:
    case SPECT::Meas::Type::MeanF:
    case SPECT::Meas::Type::SEF95:
        return "Hz";
    }
    return "";
}

} // namespace orvanta::spectral
