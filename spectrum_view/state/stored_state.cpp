// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/state/stored_state.h"

#include "spectra_contract/platform.h"
#include "spectra_contract/spectra_mgr.h"

#include <algorithm>
#include <limits>

namespace orvanta::spectrum_view {

namespace {

std::string ScaleSection(unsigned entity) {
    return "EntityString_" + std::to_string(entity);
}

std::string EntityName(const SpectraMgr& manager, unsigned entity) {
    return manager.GetMeasEntityStr(static_cast<SPECT::Entity::Type>(entity));
}

int Stored(std::uint64_t count) {
    return static_cast<int>(std::min<std::uint64_t>(count, std::numeric_limits<int>::max()));
}

SPECT::Scale ReadScale(const UserType& user, const std::string& section) {
    SPECT::Scale scale;
    scale.MinX = user.GetDouble(section.c_str(), "MinX", scale.MinX);
    scale.MaxX = user.GetDouble(section.c_str(), "MaxX", scale.MaxX);
    scale.MaxY = user.GetDouble(section.c_str(), "MaxY", scale.MaxY);
    scale.MinY = user.GetDouble(section.c_str(), "MinY", scale.MinY);
    scale.AutoScale = user.GetInt(section.c_str(), "AutoScale", scale.AutoScale ? 1 : 0) != 0;
    return scale;
}

void WriteScale(UserType& user, const std::string& section, const SPECT::Scale& scale) {
    user.PutDouble(section.c_str(), "MinX", scale.MinX);
    user.PutDouble(section.c_str(), "MaxX", scale.MaxX);
    user.PutDouble(section.c_str(), "MinY", scale.MinY);
    user.PutDouble(section.c_str(), "MaxY", scale.MaxY);
    user.PutInt(section.c_str(), "AutoScale", scale.AutoScale ? 1 : 0);
}

} // namespace

ViewState OpenState(const UserType& user, SpectraMgr& manager, double loadedRate, DisplaySettings& display) {
    display.mode = SPECT::Data::Mode::Mean;
    ViewState view;
    manager.SetMeasEntity(static_cast<SPECT::Entity::Type>(user.GetInt(kSection, "MeasEntity", 0)));
    const int rows = user.GetInt(kSection, "NumRows", 4);
    const int columns = user.GetInt(kSection, "NumCols", 4);
    view.grid = GridSizeOf(rows, columns);
    view.commonScale = user.GetInt(kSection, "bCommonScale", 0) != 0;
    display.showSd = user.GetInt(kSection, "m_bShowSD", 0) != 0;
    display.showLabels = true;
    display.showAxesText = true;
    display.showMeasuresBox = true;
    display.degrees = user.GetInt(kSection, "Degrees", 1) != 0;
    display.showPoints = user.GetInt(kSection, "ShowPoints", 1) != 0;
    display.showLines = user.GetInt(kSection, "ShowLines", 1) != 0;
    for (unsigned entity = 0; entity < kStoredScales; ++entity) {
        view.scales[EntityName(manager, entity)] = ReadScale(user, ScaleSection(entity));
    }
    const SPECT::Scale& scale = view.scales[manager.GetCurrMeasEntityStr()];
    display.range = SPECT::ClampFrequencyRange(scale.MinX, scale.MaxX, loadedRate);
    return view;
}

void SaveState(UserType& user, const SpectraMgr& manager, const ViewState& view,
               const DisplaySettings& display) {
    user.PutInt(kSection, "MeasEntity", static_cast<int>(manager.GetMeasEntity()));
    user.PutInt(kSection, "NumRows", Stored(view.grid.rows));
    user.PutInt(kSection, "NumCols", Stored(view.grid.columns));
    user.PutInt(kSection, "bCommonScale", view.commonScale ? 1 : 0);
    user.PutInt(kSection, "m_bShowSD", display.showSd ? 1 : 0);
    user.PutInt(kSection, "ShowPoints", display.showPoints ? 1 : 0);
    user.PutInt(kSection, "ShowLines", display.showLines ? 1 : 0);
    for (unsigned entity = 0; entity < kStoredScales; ++entity) {
        const auto scale = view.scales.find(EntityName(manager, entity));
        WriteScale(user, ScaleSection(entity), scale == view.scales.end() ? SPECT::Scale() : scale->second);
    }
}

} // namespace orvanta::spectrum_view
