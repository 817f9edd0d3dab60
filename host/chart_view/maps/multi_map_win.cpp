// SPDX-License-Identifier: GPL-3.0-or-later
// The array of maps as a window: its parts, their places, what is drawn around the maps.
#include "host/chart_view/maps/multi_map_win.h"

#include "host/chart_view/maps/map_texts.h"
#include "host/chart_view/maps/multi_map_impl.h"
#include "host/chart_view/topography/map_frame.h"
#include "host/toolkit/painter_dc.h"
#include "host/toolkit/qt_painting.h"

#include <QEvent>
#include <QFontMetrics>
#include <QPainter>
#include <QScopeGuard>

using namespace orvanta::chart;

namespace {

constexpr int kMargin = 6; ///< around title and scale

owl::TFont TitleFont(owl::TFont font) {
    font.bold = true;
    return font;
}

/// Measures texts as they are drawn on the screen.
class Ruler {
public:
    owl::TDC& DC() { return dc_; }

private:
    QImage nowhere_{1, 1, QImage::Format_ARGB32_Premultiplied};
    QPainter painter_{&nowhere_};
    owl::PainterDC dc_{painter_};
};

int ScaleWidth(const ColorScale& scale, const owl::TFont& font) {
    Ruler ruler;
    ruler.DC().SelectFont(font);
    return RoomOfScale(ruler.DC(), scale).beside.cx;
}

} // namespace

MultiMapWin::MultiMapWin(GlobalWindow& window, bool threeD, const std::vector<ElectInfo>& electrodes,
                         std::string name, PModule* module, const ChildResInfo& resources)
    : TheChild(window, std::move(name), module, resources), impl_(std::make_unique<Impl>()) {
    impl_->threeD = threeD;
    impl_->electrodes = electrodes;
}

MultiMapWin::~MultiMapWin() = default;

void MultiMapWin::SetupWindow() {
    TheChild::SetupWindow();
    MakeMaps(impl_->settings.grid);
    ShowTable(impl_->settings.table);
}

void MultiMapWin::LoadUserSettings() {
    TheChild::LoadUserSettings();
    impl_->settings = ReadStoredMaps(*GW().GetPlatform(), GetChildName());
    impl_->single = impl_->settings.singlePalette;
    impl_->settings.display.font = GetViewFont();
}

void MultiMapWin::StoreUserSettings() const {
    TheChild::StoreUserSettings();
    StoreMaps(*GW().GetPlatform(), GetChildName(), impl_->settings);
}

void MultiMapWin::Destroy(int retVal) {
    const bool last = IsCreated(); // else the settings were not read
    TheChild::Destroy(retVal);
    if (last) {
        StoreUserSettings();
    }
}

bool MultiMapWin::IsThreeD() const {
    return impl_->threeD;
}

const std::vector<ElectInfo>& MultiMapWin::GetElectrodes() const {
    return impl_->electrodes;
}

std::uint16_t MultiMapWin::GetNumMaps() const {
    return static_cast<std::uint16_t>(impl_->maps.size());
}

std::uint16_t MultiMapWin::GetLayoutCount() const {
    return impl_->settings.grid.columns;
}

TMapWindow* MultiMapWin::GetMap(std::size_t index) const {
    return index < impl_->maps.size() ? impl_->maps[index] : nullptr;
}

bool MultiMapWin::IsFirstDraw() const {
    return impl_->firstDraw;
}

void MultiMapWin::ClearFirstDraw() {
    impl_->firstDraw = false;
}

void MultiMapWin::ShowMaps(bool show) {
    impl_->mapsShown = show;
    LayOut();
}

void MultiMapWin::SetLowerBar(QWidget* bar) {
    impl_->lowerBar = bar;
    LayOut();
}

void MultiMapWin::ResetWindows(std::uint16_t rows, std::uint16_t columns) {
    impl_->settings.grid = Repaired({rows, columns});
    MakeMaps(impl_->settings.grid);
    Invalidate();
}

void MultiMapWin::MakeMaps(const MapGrid& grid) {
    const QPointer<MultiMapWin> alive(this);
    const HeadView view = GetMap(0) != nullptr ? GetMap(0)->GetView() : kTopView;
    while (impl_->maps.size() > grid.Count()) {
        TMapWindow* const surplus = impl_->maps.back();
        impl_->maps.pop_back();
        if (surplus != nullptr) {
            surplus->Destroy();
            surplus->deleteLater(); // it may be the one whose event is answered
        }
    }
    impl_->maps.resize(grid.Count());
    impl_->contents.resize(grid.Count());
    for (std::size_t i = 0; i < grid.Count(); ++i) {
        if (impl_->maps[i] != nullptr) {
            continue;
        }
        TMapWindow* const map = CreateMap(static_cast<int>(i));
        if (!alive || map == nullptr) {
            return;
        }
        map->setFocusPolicy(Qt::NoFocus); // the view keeps its keys
        map->SetView(view);
        impl_->maps[i] = map;
        map->Create();
        impl_->contents[i] = {map->GetTitle(), map->GetValues(), map->GetMeasureUnit()};
    }
    ApplyDisplay();
    LayOut();
    FillTable();
}

void MultiMapWin::ApplyDisplay() {
    MapDisplay display = impl_->settings.display;
    display.ownScale = !SharedScale();
    display.fit = FitMaps(display.ownScale);
    impl_->settings.display.ownScale = display.ownScale;
    for (const QPointer<TMapWindow>& map : impl_->maps) {
        if (map && map->GetDisplay() != display) {
            map->SetDisplay(display);
        }
    }
}

MapFit MultiMapWin::FitMaps(bool ownScales) const {
    if (impl_->layout.maps.empty()) {
        return {};
    }
    Ruler ruler;
    const owl::TFont& font = impl_->settings.display.font;
    MapFit fit;
    std::vector<std::string> titles;
    ruler.DC().SelectFont(font);
    for (std::size_t i = 0; i < impl_->InUse(); ++i) {
        if (const TMapWindow* map = GetMap(i)) {
            titles.push_back(map->GetTitle());
            if (ownScales) {
                const ColorScale scale =
                    ColorScaleOf(GW().GetPlatform(), map->GetScale(), map->GetMeasureUnit());
                fit.scale = RoomForBoth(fit.scale, RoomOfScale(ruler.DC(), scale));
            }
        }
    }
    const owl::TRect& first = impl_->layout.maps.front();
    fit.titles = FitTitles(ruler.DC(), font, titles, TitleRoom({first.Width(), first.Height()}));
    return fit;
}

void MultiMapWin::SetWholeRect() {
    impl_->settings.display.font = GetViewFont();
    ApplyDisplay();
    LayOut();
    Invalidate();
}

void MultiMapWin::EvSize(unsigned sizeType, const owl::TSize& size) {
    TheChild::EvSize(sizeType, size);
    LayOut();
}

void MultiMapWin::changeEvent(QEvent* event) {
    TheChild::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        LayOut(); // the controls have another height
    }
}

MapArrayLayout MultiMapWin::Layout() const {
    MapArrayParts parts;
    if (!impl_->title.empty()) {
        parts.titleHeight = QFontMetrics(owl::ToQFont(TitleFont(GetViewFont()))).height() + 2 * kMargin;
    }
    if (const auto scale = SharedScale()) {
        parts.scaleWidth = ScaleWidth(*scale, GetViewFont()) + 2 * kMargin;
    }
    if (impl_->lowerBar && !impl_->lowerBar->isHidden()) {
        parts.barHeight = impl_->lowerBar->sizeHint().height();
    }
    return LayOutMapArray(GetClientRect(), impl_->settings.grid, parts);
}

std::optional<ColorScale> MultiMapWin::SharedScale() const {
    const auto scale = impl_->single ? impl_->CommonScale() : std::nullopt;
    return scale ? std::optional(ColorScaleOf(GW().GetPlatform(), *scale, impl_->UnitOf(0))) : std::nullopt;
}

void MultiMapWin::LayOut() {
    const MapArrayLayout layout = Layout();
    impl_->layout = layout;
    impl_->layoutScale = impl_->CommonScale();
    for (std::size_t i = 0; i < impl_->maps.size() && i < layout.maps.size(); ++i) {
        if (const QPointer<TMapWindow>& map = impl_->maps[i]) {
            map->setGeometry(owl::ToQRect(layout.maps[i]));
            // Set up and shown with the view when that is not yet.
            map->setVisible(impl_->mapsShown && !layout.maps[i].IsEmpty());
        }
    }
    if (impl_->lowerBar) {
        impl_->lowerBar->setGeometry(owl::ToQRect(layout.bar));
    }
    ApplyDisplay(); // maps of another size fit other titles
}

void MultiMapWin::DrawAll(owl::TDC& dc, double fineness) {
    // A picture needs no controls.
    const bool controls = impl_->lowerBar && !impl_->lowerBar->isHidden();
    if (controls) {
        impl_->lowerBar->hide();
    }
    const QPointer<MultiMapWin> alive(this);
    const auto shown = qScopeGuard([&] {
        if (controls && alive) {
            impl_->lowerBar->show();
            LayOut();
        }
    });
    LayOut();
    TheChild::DrawAll(dc, fineness);
    for (std::size_t i = 0; alive && i < impl_->maps.size(); ++i) {
        if (TMapWindow* map = GetMap(i)) {
            map->DrawInView(dc, fineness);
        }
    }
}

void MultiMapWin::Draw(owl::TDC& dc, bool erase, owl::TRect& rect) {
    TheChild::Draw(dc, erase, rect);
    const MapArrayLayout layout = Layout();
    MapLook look;
    look.contours = impl_->settings.display.contours;
    look.font = GetViewFont();
    look.textColor = owl::FromQColor(palette().color(QPalette::WindowText));
    look.backColor = owl::FromQColor(palette().color(QPalette::Window));
    if (!layout.title.IsEmpty()) {
        PaintTitle(dc, layout.title.InflatedBy(-kMargin, -kMargin), impl_->title, TitleFont(look.font), {},
                   look.textColor);
    }
    const auto scale = SharedScale();
    if (scale && !layout.scale.IsEmpty()) {
        dc.SelectFont(look.font);
        PaintUprightScale(dc, layout.scale.InflatedBy(-kMargin, -kMargin),
                          Palettes()[static_cast<std::size_t>(GetPaletteIndex())].colors, *scale, look);
    }
}
