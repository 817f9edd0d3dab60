// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/map_painting.h"

#include "host/chart_view/maps/map_texts.h"
#include "host/chart_view/topography/flat_map.h"
#include "host/chart_view/topography/head_map.h"

#include <algorithm>
#include <utility>

namespace orvanta::chart {

namespace {

/// Of the background, over a map that is disabled: 0 to 255.
constexpr std::uint8_t kPale = 150;

std::vector<MapElectrode> ElectrodesOf(const GenericPlatform* platform, const MapData& data, int decimals) {
    std::vector<MapElectrode> electrodes;
    for (std::size_t i = 0; i < data.electrodes.size(); ++i) {
        const ElectInfo& electrode = data.electrodes[i];
        if (electrode.Known) {
            electrodes.push_back({electrode.Position, electrode.Name,
                                  NumberText(platform, data.ValueOf(i), decimals), data.IsUsed(i), i});
        }
    }
    return electrodes;
}

MapLook LookOf(const MapDisplay& display, const MapSight& sight) {
    return {display.electrodes, display.names,   display.values,  display.ownScale, display.contours,
            display.font,       sight.textColor, sight.backColor, sight.pixelRatio, display.fit};
}

const Colors& ColorsOf(const MapDisplay& display) {
    const Palette* palette = FindPalette(display.palette);
    return palette != nullptr ? palette->colors : Palettes().front().colors;
}

/// The scale that fields are drawn on, which are shares of the map's own scale.
ColorScale InShares(ColorScale bar) {
    bar.high = bar.high > bar.low ? 1 : 0;
    bar.low = 0;
    return bar;
}

/// Of the scale, 0 at its lower end and 1 at its upper one; what is far off it is only known to be far.
float ShareOf(double value, const ValueRange& scale) {
    constexpr double kFar = 1e6;
    const double half = scale.high / 2 - scale.low / 2; // the whole may be more than a double holds
    return half > 0 ? static_cast<float>(std::clamp((value / 2 - scale.low / 2) / half, -kFar, kFar)) : 0.0F;
}

} // namespace

bool MapFields::Collect(const MapData& data) {
    std::vector<HeadPosition> electrodes;
    std::vector<float> values;
    const ValueRange scale = ScaleOf(data);
    for (std::size_t i = 0; i < data.electrodes.size(); ++i) {
        if (data.IsUsed(i)) {
            electrodes.push_back(data.electrodes[i].Position);
            values.push_back(ShareOf(data.values[i], scale));
        }
    }
    if (electrodes != electrodes_) {
        electrodes_ = std::move(electrodes);
        flat_ = nullptr;
        head_ = nullptr;
        field_.clear();
    }
    if (values != values_) {
        values_ = std::move(values);
        field_.clear();
    }
    return !electrodes_.empty();
}

const FlatSurface* MapFields::Flat(const MapData& data) {
    if (!Collect(data)) {
        return nullptr;
    }
    if (!flat_) {
        flat_ = SharedFlatSurface(electrodes_);
    }
    if (field_.empty()) {
        field_ = flat_->FieldOf(values_);
    }
    return flat_.get();
}

const HeadSurface* MapFields::Head(const MapData& data) {
    if (!Collect(data)) {
        return nullptr;
    }
    if (!head_) {
        head_ = SharedHeadSurface(electrodes_);
    }
    if (field_.empty()) {
        field_ = head_->FieldOf(values_);
    }
    return head_.get();
}

SeenElectrodes PaintMap(owl::TDC& dc, const GenericPlatform* platform, const MapData& data,
                        const MapDisplay& display, const MapSight& sight, MapFields& fields) {
    const ValueRange scale = ScaleOf(data);
    const ColorScale bar = InShares(ColorScaleOf(platform, scale, data.unit));
    const std::vector<MapElectrode> electrodes = ElectrodesOf(platform, data, DecimalsFor(scale));
    const MapLook look = LookOf(display, sight);
    SeenElectrodes seen;
    if (sight.threeD) {
        HeadMap map{sight.area,
                    data.title,
                    MapHead(),
                    {},
                    {},
                    {},
                    ColorsOf(display),
                    bar,
                    electrodes,
                    sight.view,
                    display.opacity,
                    sight.turning,
                    look,
                    NoticeOf(data)};
        if (const HeadSurface* surface = fields.Head(data)) {
            map.field = fields.Field();
            map.covers = surface->covers;
            map.beyond = surface->beyond;
        }
        seen = PaintHeadMap(dc, map);
    } else {
        FlatMap map{sight.area, data.title,    {}, {}, {}, {}, ColorsOf(display), bar, electrodes,
                    look,       NoticeOf(data)};
        if (const FlatSurface* surface = fields.Flat(data)) {
            map.reach = surface->reach;
            map.field = fields.Field();
            map.covers = surface->covers;
            map.beyond = surface->beyond;
        }
        seen = PaintFlatMap(dc, map);
    }
    if (!sight.enabled) {
        dc.BlendRect(sight.area, sight.backColor, kPale);
    }
    for (ElectrodeMark& mark : seen) {
        mark.electrode = electrodes[mark.electrode].number;
    }
    return seen;
}

} // namespace orvanta::chart
