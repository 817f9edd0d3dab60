// SPDX-License-Identifier: GPL-3.0-or-later
// What the maps show: kept, ranged, brought to the screen, copied.
#include "host/chart_view/maps/map_data.h"
#include "host/chart_view/maps/multi_map_impl.h"

#include <QSplitter>

using namespace orvanta::chart;

std::optional<ValueRange> MultiMapWin::Impl::CommonScale() const {
    std::optional<ValueRange> common;
    for (std::size_t i = 0; i < InUse(); ++i) {
        if (maps[i] == nullptr) {
            continue;
        }
        const ValueRange scale = maps[i]->GetScale();
        if ((common && *common != scale) || UnitOf(i) != UnitOf(0)) {
            return {};
        }
        common = scale;
    }
    return common;
}

const std::string& MultiMapWin::GetTitle() const {
    return impl_->title;
}

const std::string& MultiMapWin::GetMeasUnit() const {
    return impl_->unit;
}

std::optional<ValueRange> MultiMapWin::GetOverallRange() const {
    return impl_->fixedRange ? impl_->fixedRange : OverallRange(impl_->Shown());
}

void MultiMapWin::SetTitle(const std::string& title) {
    if (impl_->title != title) {
        impl_->title = title;
        setAccessibleName(QString::fromStdString(title));
        LayOut();
        Invalidate();
    }
}

void MultiMapWin::SetMeasUnit(const std::string& unit) {
    if (impl_->unit == unit) {
        return;
    }
    impl_->unit = unit;
    for (std::size_t i = 0; i < impl_->maps.size(); ++i) {
        if (impl_->maps[i] && impl_->contents[i].unit.empty()) {
            impl_->maps[i]->SetMeasureUnit(unit);
        }
    }
    LayOut();
    Invalidate();
}

void MultiMapWin::SetMap(std::size_t index, const std::string& title, const std::vector<double>& values) {
    if (index < impl_->contents.size()) {
        impl_->contents[index].title = title;
        impl_->contents[index].values = values;
    }
}

void MultiMapWin::SetMapUnit(std::size_t index, const std::string& unit) {
    if (index < impl_->contents.size()) {
        impl_->contents[index].unit = unit;
    }
}

void MultiMapWin::SetMapsInUse(std::optional<std::size_t> count) {
    impl_->inUse = count;
}

void MultiMapWin::SetFixedRange(const std::optional<ValueRange>& range) {
    impl_->fixedRange = range;
}

void MultiMapWin::SetSinglePalette(bool single) {
    impl_->single = single || impl_->settings.singlePalette;
    PushMaps();
    LayOut();
    Invalidate();
}

void MultiMapWin::SetMapValues(bool fetch) {
    const QPointer<MultiMapWin> alive(this);
    if (fetch) {
        ComputeAllMapsValues();
    }
    if (alive && IsCreated()) {
        PushMaps();
    }
}

void MultiMapWin::UpdateMapsOrKeep(const XTimeList& list) {
    const std::vector<MapContent> before = impl_->contents;
    const QPointer<MultiMapWin> alive(this);
    try {
        UpdateMaps(list);
    } catch (...) {
        if (alive) {
            impl_->contents = before;
            impl_->contents.resize(impl_->maps.size());
        }
        throw;
    }
}

void MultiMapWin::PushMaps() {
    for (std::size_t i = 0; i < impl_->maps.size(); ++i) {
        if (const QPointer<TMapWindow>& map = impl_->maps[i]) {
            map->SetValues(impl_->contents[i].values, impl_->contents[i].title, false);
            map->SetMeasureUnit(impl_->UnitOf(i));
            map->EnableWindow(i < impl_->InUse());
        }
    }
    SetRange();
    ShareScale();
    ApplyDisplay();
    for (const QPointer<TMapWindow>& map : impl_->maps) {
        if (map) {
            map->Invalidate();
        }
    }
    if (Layout() != impl_->layout || impl_->CommonScale() != impl_->layoutScale) {
        LayOut();
        Invalidate();
    }
    FillTable();
}

void MultiMapWin::ShareScale() {
    if (!impl_->single || impl_->CommonScale()) {
        return;
    }
    std::optional<ValueRange> all;
    for (std::size_t i = 0; i < impl_->InUse(); ++i) {
        if (impl_->UnitOf(i) != impl_->UnitOf(0)) {
            return; // no scale is right for different units
        }
        if (impl_->maps[i] && RangeOf(impl_->contents[i].values)) {
            const ValueRange scale = impl_->maps[i]->GetScale();
            all = all ? ValueRange{std::min(all->low, scale.low), std::max(all->high, scale.high)} : scale;
        }
    }
    for (std::size_t i = 0; all && i < impl_->InUse(); ++i) {
        if (impl_->maps[i]) {
            impl_->maps[i]->SetRange(all->low, all->high, false, false);
        }
    }
}

void MultiMapWin::CmCopy2ClpBrd() {
    std::string row;
    GetClipboardFirstRaw(row);
    CopyStringToClipboard(ClipboardTable(row, impl_->Shown(), *GW().GetPlatform()));
}

bool MultiMapWin::IsTableShown() const {
    return impl_->table && !impl_->table->isHidden();
}

void MultiMapWin::ShowTable(bool show) {
    impl_->settings.table = show;
    if (show && !impl_->table) {
        impl_->table = new MapValuesTable(impl_->electrodes, *GW().GetPlatform());
        Panes().addWidget(impl_->table);
        Panes().setStretchFactor(Panes().indexOf(this), 1);
        Panes().setStretchFactor(Panes().indexOf(impl_->table), 0);
    }
    if (impl_->table) {
        impl_->table->setVisible(show);
    }
    FillTable();
}

void MultiMapWin::FillTable() {
    if (IsTableShown()) {
        impl_->table->SetMaps(impl_->Shown());
    }
}
