// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/map_painting.h"

#include "host/chart_view/maps/map_texts.h"
#include "host/chart_view/topography/flat_map.h"
#include "host/chart_view/topography/head_map.h"

namespace orvanta::chart {

namespace {

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
            display.font,       sight.textColor, sight.backColor, sight.enabled,    sight.pixelRatio};
}

const Colors& ColorsOf(const MapDisplay& display) {
    const Palette* palette = FindPalette(display.palette);
    return palette != nullptr ? palette->colors : Palettes().front().colors;
}

} // namespace

bool MapFields::Collect(const MapData& data) {
    std::vector<HeadPosition> electrodes;
    values_.clear();
    for (std::size_t i = 0; i < data.electrodes.size(); ++i) {
        if (data.IsUsed(i)) {
            electrodes.push_back(data.electrodes[i].Position);
            values_.push_back(static_cast<float>(data.values[i]));
        }
    }
    if (electrodes != electrodes_) {
        electrodes_ = std::move(electrodes);
        flat_ = nullptr;
        head_ = nullptr;
    }
    field_.clear();
    return !electrodes_.empty();
}

const FlatSurface* MapFields::Flat(const MapData& data) {
    if (!Collect(data)) {
        return nullptr;
    }
    if (!flat_) {
        flat_ = SharedFlatSurface(electrodes_);
    }
    field_ = flat_->FieldOf(values_);
    return flat_.get();
}

const HeadSurface* MapFields::Head(const MapData& data) {
    if (!Collect(data)) {
        return nullptr;
    }
    if (!head_) {
        head_ = SharedHeadSurface(electrodes_);
    }
    field_ = head_->FieldOf(values_);
    return head_.get();
}

SeenElectrodes PaintMap(owl::TDC& dc, const GenericPlatform* platform, const MapData& data,
                        const MapDisplay& display, const MapSight& sight, MapFields& fields) {
    const ValueRange scale = ScaleOf(data);
    const ColorScale bar = ColorScaleOf(platform, scale, data.unit);
    const std::vector<MapElectrode> electrodes = ElectrodesOf(platform, data, DecimalsFor(scale));
    const MapLook look = LookOf(display, sight);
    SeenElectrodes seen;
    if (sight.threeD) {
        const HeadSurface* surface = fields.Head(data);
        const std::span<const float> covers =
            surface != nullptr ? std::span<const float>(surface->covers) : std::span<const float>();
        seen = PaintHeadMap(dc, {sight.area, data.title, MapHead(), fields.Field(), covers, ColorsOf(display),
                                 bar, electrodes, sight.view, display.opacity, sight.turning, look,
                                 NoticeOf(data)});
    } else {
        const FlatSurface* surface = fields.Flat(data);
        const std::span<const float> beyond =
            surface != nullptr ? std::span<const float>(surface->beyond) : std::span<const float>();
        seen = PaintFlatMap(dc, {sight.area, data.title, surface != nullptr ? surface->reach : 1.0,
                                 fields.Field(), beyond, ColorsOf(display), bar, electrodes, look,
                                 NoticeOf(data)});
    }
    for (ElectrodeMark& mark : seen) {
        mark.electrode = electrodes[mark.electrode].number;
    }
    return seen;
}

} // namespace orvanta::chart
