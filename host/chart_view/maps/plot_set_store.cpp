// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/plot_set_store.h"

#include "spectra_contract/platform.h"

#include <cmath>

namespace orvanta::chart {

namespace {

std::int32_t IndexOr(int stored, unsigned count, std::int32_t otherwise) {
    return stored >= 0 && static_cast<unsigned>(stored) < count ? stored : otherwise;
}

double FiniteOr(double stored, double otherwise) {
    return std::isfinite(stored) ? stored : otherwise;
}

} // namespace

SPECT::PlotSet LoadPlotSet(const UserType& user, const std::string& section) {
    const char* name = section.c_str();
    const SPECT::PlotSet fresh;
    SPECT::PlotSet read;
    read.SpectralBand =
        IndexOr(user.GetInt(name, "SpectralBand", fresh.SpectralBand), SPECT::BandCount, fresh.SpectralBand);
    read.SpectralMeas = IndexOr(user.GetInt(name, "SpectralMeas", fresh.SpectralMeas), SPECT::Meas::Count,
                                fresh.SpectralMeas);
    read.bAutoScale = user.GetInt(name, "bAutoScale", fresh.bAutoScale ? 1 : 0) != 0;
    read.bZeroMin = user.GetInt(name, "bZeroMin", fresh.bZeroMin ? 1 : 0) != 0;
    read.LoScale = FiniteOr(user.GetDouble(name, "LoScale", fresh.LoScale), fresh.LoScale);
    read.HiScale = FiniteOr(user.GetDouble(name, "HiScale", fresh.HiScale), fresh.HiScale);
    return read;
}

void SavePlotSet(UserType& user, const std::string& section, const SPECT::PlotSet& plotSet) {
    const char* name = section.c_str();
    user.PutInt(name, "SpectralBand", plotSet.SpectralBand);
    user.PutInt(name, "SpectralMeas", plotSet.SpectralMeas);
    user.PutInt(name, "bAutoScale", plotSet.bAutoScale ? 1 : 0);
    user.PutInt(name, "bZeroMin", plotSet.bZeroMin ? 1 : 0);
    user.PutDouble(name, "LoScale", plotSet.LoScale);
    user.PutDouble(name, "HiScale", plotSet.HiScale);
}

std::string SectionOfMap(const std::string& view, int map) {
    return view + "_Map_" + std::to_string(map);
}

} // namespace orvanta::chart
