// SPDX-License-Identifier: GPL-3.0-or-later
// What a view of maps holds.
#pragma once

#include "host/chart_view/maps/map_array_layout.h"
#include "host/chart_view/maps/map_values.h"
#include "host/chart_view/maps/map_values_table.h"
#include "host/chart_view/maps/multi_map_win.h"
#include "host/chart_view/maps/stored_maps.h"
#include "host/toolkit/table_window.h"

#include <QPointer>
#include <QSlider>

#include <algorithm>

struct MultiMapWin::Impl {
    bool threeD;
    std::vector<ElectInfo> electrodes;
    orvanta::chart::StoredMaps settings; ///< the display is what maps are drawn with now
    bool single = false;                 ///< now; the setting is the user's wish

    std::vector<QPointer<TMapWindow>> maps;
    std::vector<orvanta::chart::MapContent> contents; ///< one for each map
    std::optional<std::size_t> inUse;
    std::optional<orvanta::chart::ValueRange> fixedRange;
    std::string title, unit;
    // As laid out last.
    orvanta::chart::MapArrayLayout layout;
    std::optional<orvanta::chart::ValueRange> layoutScale;

    bool firstDraw = true;
    bool mapsShown = true;

    QPointer<QSlider> transparency;
    QPointer<QWidget> lowerBar;
    QPointer<TTableWnd> picker;
    QPointer<orvanta::chart::MapValuesTable> table;

    std::size_t InUse() const { return std::min(inUse.value_or(maps.size()), maps.size()); }
    /// Of the maps in use.
    std::span<const orvanta::chart::MapContent> Shown() const {
        return std::span(contents).first(std::min(InUse(), contents.size()));
    }
    const std::string& UnitOf(std::size_t index) const {
        const std::string& own = contents[index].unit;
        return own.empty() ? unit : own;
    }
    /// The scale of all maps in use; nothing when they differ, or there is none.
    std::optional<orvanta::chart::ValueRange> CommonScale() const;
};
