// SPDX-License-Identifier: GPL-3.0-or-later
// What the user asks of the maps.
#include "host/chart_view/maps/dialogs/map_settings.h"
#include "host/chart_view/maps/dialogs/palette_chooser.h"
#include "host/chart_view/maps/map_commands.h"
#include "host/chart_view/maps/map_context_menu.h"
#include "host/chart_view/maps/multi_map_impl.h"
#include "host/chart_view/topography/palettes.h"

#include <QContextMenuEvent>
#include <QCursor>
#include <QSignalBlocker>

using namespace orvanta::chart;

namespace {

constexpr WPARAM kLow16 = 0xFFFF;
constexpr WPARAM kOpaque = 100;

HeadView HeadViewOf(unsigned command) {
    switch (command) {
    case kFromFront:
        return kFrontView;
    case kFromLeft:
        return kLeftView;
    case kFromRight:
        return kRightView;
    case kFromBack:
        return kBackView;
    default:
        return kTopView;
    }
}

} // namespace

constinit const owl::TResponseTable MultiMapWin::__entries = {
    owl::Command<&MultiMapWin::CmConfigureMap>(kConfigureMap),
    owl::Command<&MultiMapWin::CmChoosePalette>(kChoosePalette),
    owl::Command<&MultiMapWin::CmCopy2ClpBrd>(kCopyMeasures),
    owl::Command<&MultiMapWin::CmTable>(kGrid),
    owl::Command<&MultiMapWin::CmElectrodes>(kElectrodes),
    owl::Command<&MultiMapWin::CmLock>(kLock),
    owl::Command<&MultiMapWin::CmSelectFont>(kSelectFont),
    owl::Command<&MultiMapWin::CmHeadView>(kFromTop, kFromBack),
    owl::Command<&MultiMapWin::CmNames>(kNames),
    owl::Command<&MultiMapWin::CmValues>(kValues),
    owl::Command<&MultiMapWin::CmSinglePalette>(kSinglePalette),
    owl::Command<&MultiMapWin::CmValuesTable>(kValuesTable),
    owl::Message<&MultiMapWin::EvTransp>(kTransparency),
    owl::Message<&MultiMapWin::EvTable>(kGrid),
    owl::Message<&MultiMapWin::EvTurned>(TMapWindow::kTurned),
    owl::On<owl::WindowEvent::Size, &MultiMapWin::EvSize>(),
};

const owl::TResponseEntry* MultiMapWin::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<TheChild>(__entries, *this, key);
}

const MapDisplay& MultiMapWin::GetDisplay() const {
    return impl_->settings.display;
}

int MultiMapWin::GetPaletteIndex() const {
    return PaletteIndex(impl_->settings.display.palette);
}

bool MultiMapWin::IsLocked() const {
    return impl_->settings.locked;
}

bool MultiMapWin::AreElectrodesShown() const {
    return impl_->settings.display.electrodes;
}

bool MultiMapWin::IsSinglePalette() const {
    return impl_->single;
}

void MultiMapWin::SetTransparencySlider(QSlider* slider) {
    impl_->transparency = slider;
    if (slider != nullptr) {
        const QSignalBlocker silent(slider);
        slider->setValue(impl_->settings.display.opacity);
    }
}

void MultiMapWin::CmChoosePalette() {
    const QPointer<MultiMapWin> alive(this);
    const auto palette = ChoosePalette(GetHandle(), impl_->settings.display.palette);
    if (!alive) {
        return;
    }
    if (palette) {
        impl_->settings.display.palette = *palette;
        ApplyDisplay();
        Invalidate();
    }
    SetFocus();
}

void MultiMapWin::CmConfigureMap() {
    const QPointer<MultiMapWin> alive(this);
    MapSettings settings{impl_->settings.display, impl_->single};
    const bool agreed = EditMapSettings(GetHandle(), settings);
    if (!alive) {
        return;
    }
    if (agreed) {
        impl_->settings.display = settings.display;
        SetTransparencySlider(impl_->transparency);
        if (settings.singlePalette != impl_->single) {
            impl_->settings.singlePalette = settings.singlePalette;
            impl_->single = settings.singlePalette;
        }
        PushMaps();
        LayOut();
        Invalidate();
    }
    SetFocus();
}

void MultiMapWin::CmSelectFont() {
    const QPointer<MultiMapWin> alive(this);
    const bool chosen = ChooseChildFont();
    if (!alive) {
        return;
    }
    if (chosen) {
        SetWholeRect();
        Invalidate();
    }
    SetFocus();
}

void MultiMapWin::CmElectrodes() {
    impl_->settings.display.electrodes = !impl_->settings.display.electrodes;
    ApplyDisplay();
}

void MultiMapWin::CmNames() {
    impl_->settings.display.names = !impl_->settings.display.names;
    ApplyDisplay();
}

void MultiMapWin::CmValues() {
    impl_->settings.display.values = !impl_->settings.display.values;
    ApplyDisplay();
}

void MultiMapWin::CmSinglePalette() {
    impl_->settings.singlePalette = !impl_->single;
    SetSinglePalette(impl_->settings.singlePalette);
}

void MultiMapWin::CmValuesTable() {
    ShowTable(!IsTableShown());
}

void MultiMapWin::CmLock() {
    impl_->settings.locked = !impl_->settings.locked;
    if (impl_->settings.locked) {
        EvTurned(0, 0);
    }
}

void MultiMapWin::CmHeadView(unsigned command) {
    for (const QPointer<TMapWindow>& map : impl_->maps) {
        if (map) {
            map->SetView(HeadViewOf(command));
        }
    }
}

LPARAM MultiMapWin::EvTurned(WPARAM index, LPARAM /*unused*/) {
    const TMapWindow* const turned = GetMap(index);
    if (!impl_->settings.locked || turned == nullptr) {
        return 0;
    }
    const HeadView view = turned->GetView();
    for (const QPointer<TMapWindow>& map : impl_->maps) {
        if (map && map != turned) {
            map->SetView(view);
        }
    }
    return 0;
}

LPARAM MultiMapWin::EvTransp(WPARAM position, LPARAM /*unused*/) {
    impl_->settings.display.opacity = static_cast<int>(std::min(position, kOpaque));
    ApplyDisplay();
    return 0;
}

void MultiMapWin::CmTable() {
    constexpr int kCell = 14; // pixels
    delete impl_->picker;
    const QPoint mouse = QCursor::pos();
    impl_->picker = new TTableWnd(*this, {mouse.x(), mouse.y()}, kMostMapsAside, kMostMapsAside, kCell, kCell,
                                  kGrid, GetDPI());
    impl_->picker->show();
}

LPARAM MultiMapWin::EvTable(WPARAM picked, LPARAM /*unused*/) {
    const QPointer<MultiMapWin> alive(this);
    ResetWindows(static_cast<std::uint16_t>(picked >> 16U & kLow16),
                 static_cast<std::uint16_t>(picked & kLow16));
    if (alive) {
        SetFocus();
    }
    return 0;
}

std::vector<MapToSet> MultiMapWin::MapsToSet(const std::optional<QPoint>& mouse) const {
    std::vector<MapToSet> maps;
    if (Find({owl::EventKind::Message, kMapOptions}) == nullptr) {
        return maps;
    }
    const std::size_t count =
        HaveMapsOwnOptions() ? impl_->InUse() : std::min<std::size_t>(1, impl_->InUse());
    for (std::size_t i = 0; i < count; ++i) {
        const TMapWindow* map = GetMap(i);
        if (map == nullptr) {
            continue;
        }
        if (mouse && map->isVisible() && map->rect().contains(map->mapFromGlobal(*mouse))) {
            return {{i, map->GetTitle()}};
        }
        maps.push_back({i, map->GetTitle()});
    }
    return maps;
}

void MultiMapWin::contextMenuEvent(QContextMenuEvent* event) {
    const MapDisplay& display = impl_->settings.display;
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    auto* menu =
        MakeMapContextMenu(*this, *this,
                           {.maps = MapsToSet(byKey ? std::nullopt : std::optional(event->globalPos())),
                            .threeD = impl_->threeD,
                            .locked = impl_->settings.locked,
                            .electrodes = display.electrodes,
                            .names = display.names,
                            .values = display.values,
                            .singlePalette = impl_->single,
                            .table = IsTableShown()});
    menu->popup(byKey ? mapToGlobal(rect().center()) : event->globalPos());
}
