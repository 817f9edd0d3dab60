// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/map_window.h"

#include "host/chart_view/maps/map_painting.h"
#include "host/chart_view/maps/map_texts.h"
#include "host/chart_view/maps/plot_set_store.h"
#include "host/chart_view/part_dc.h"
#include "host/toolkit/qt_painting.h"

#include <QEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

namespace {

using namespace orvanta::chart;

// Logical pixels: an electrode is hit so near, and a press that moves farther is no click.
constexpr int kHitReach = 7;
constexpr int kStill = 3;

struct Press {
    owl::TPoint from;   ///< where the button went down,
    owl::TPoint at;     ///< and where the mouse was last
    bool moved = false; ///< it is a drag
};

} // namespace

struct TMapWindow::Impl {
    GenericPlatform* platform;
    bool threeD;
    int index;
    std::string section;
    MapData data;
    MapDisplay display;
    HeadView view = kTopView;
    std::optional<Press> press;
    MapFields fields;
    SeenElectrodes seen; ///< as drawn last
    bool playing = false;
    std::optional<double> fineness; ///< of a picture; the screen's without

    bool IsTurning() const { return threeD && press && press->moved; }
};

constinit const owl::TResponseTable TMapWindow::__entries = {
    owl::On<owl::WindowEvent::Size, &TMapWindow::EvSize>(),
    owl::On<owl::WindowEvent::LButtonDown, &TMapWindow::EvLButtonDown>(),
    owl::On<owl::WindowEvent::LButtonUp, &TMapWindow::EvLButtonUp>(),
    owl::On<owl::WindowEvent::LButtonDblClk, &TMapWindow::EvLButtonDblClk>(),
    owl::On<owl::WindowEvent::MouseMove, &TMapWindow::EvMouseMove>(),
};

const owl::TResponseEntry* TMapWindow::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<owl::TWindow>(__entries, *this, key);
}

TMapWindow::TMapWindow(owl::TWindow* parent, GenericPlatform* platform,
                       const std::vector<ElectInfo>& electrodes, bool showElectrodes, bool threeD,
                       int palette, const char* name, int index, int contours)
    : TWindow(parent), impl_(std::make_unique<Impl>()) {
    impl_->platform = platform;
    impl_->threeD = threeD;
    impl_->index = index;
    impl_->section = SectionOfMap(name, index);
    impl_->data.electrodes = electrodes;
    const auto palettes = Palettes();
    const bool known = palette >= 0 && static_cast<std::size_t>(palette) < palettes.size();
    impl_->display.palette = palettes[known ? static_cast<std::size_t>(palette) : 0].name;
    impl_->display.electrodes = showElectrodes;
    impl_->display.contours = contours;
    setMouseTracking(true);
}

TMapWindow::~TMapWindow() = default;

int TMapWindow::GetIndex() const {
    return impl_->index;
}

bool TMapWindow::IsThreeD() const {
    return impl_->threeD;
}

const std::string& TMapWindow::GetSection() const {
    return impl_->section;
}

void TMapWindow::SetValues(const std::vector<double>& values, const std::string& title, bool redraw) {
    impl_->data.values = values;
    impl_->data.values.resize(std::min(values.size(), impl_->data.electrodes.size()));
    impl_->data.title = title;
    Describe();
    if (redraw) {
        Invalidate();
    }
}

const std::vector<double>& TMapWindow::GetValues() const {
    return impl_->data.values;
}

const std::string& TMapWindow::GetTitle() const {
    return impl_->data.title;
}

void TMapWindow::SetMeasureUnit(const std::string& unit) {
    if (std::exchange(impl_->data.unit, unit) != unit) {
        Describe();
        Invalidate();
    }
}

const std::string& TMapWindow::GetMeasureUnit() const {
    return impl_->data.unit;
}

void TMapWindow::SetMissing(const std::string& why) {
    if (std::exchange(impl_->data.missing, why) != why) {
        Describe();
        Invalidate();
    }
}

void TMapWindow::SetRange(double low, double high, bool autoScale, bool zeroMin) {
    MapData& map = impl_->data;
    map.low = low;
    map.high = high;
    map.autoScale = autoScale;
    map.zeroMin = zeroMin;
    Describe();
    Invalidate();
}

ValueRange TMapWindow::GetScale() const {
    return ScaleOf(impl_->data);
}

void TMapWindow::SetDisplay(const MapDisplay& display) {
    if (std::exchange(impl_->display, display) != display) {
        Invalidate();
    }
}

const MapDisplay& TMapWindow::GetDisplay() const {
    return impl_->display;
}

void TMapWindow::SetView(const HeadView& view) {
    if (impl_->threeD && std::exchange(impl_->view, view) != view) {
        Invalidate();
    }
}

HeadView TMapWindow::GetView() const {
    return impl_->view;
}

void TMapWindow::SetPlaying(bool playing) {
    if (std::exchange(impl_->playing, playing) != playing && impl_->threeD) {
        Invalidate();
    }
}

std::optional<std::size_t> TMapWindow::ElectrodeAt(const owl::TPoint& point) const {
    std::optional<std::size_t> nearest;
    int least = kHitReach * kHitReach;
    for (const ElectrodeMark& mark : impl_->seen) {
        const int dx = mark.at.x - point.x;
        const int dy = mark.at.y - point.y;
        if (dx * dx + dy * dy <= least) {
            least = dx * dx + dy * dy;
            nearest = mark.electrode;
        }
    }
    return nearest;
}

void TMapWindow::SetupWindow() {
    TWindow::SetupWindow();
    Describe();
}

/// For those who hear the window instead of seeing it.
void TMapWindow::Describe() {
    const MapData& map = impl_->data;
    setAccessibleName(QString::fromStdString(map.title));
    const std::string notice = NoticeOf(map);
    const ColorScale scale = ColorScaleOf(impl_->platform, ScaleOf(map), map.unit);
    const std::string range =
        scale.numbers.front() + " – " + scale.numbers.back() + (map.unit.empty() ? "" : " " + map.unit);
    setAccessibleDescription(QString::fromStdString(notice.empty() ? range : notice));
}

void TMapWindow::Draw(owl::TDC& dc, bool erase, owl::TRect& rect) {
    TWindow::Draw(dc, erase, rect);
    MapSight sight;
    sight.area = GetClientRect();
    sight.threeD = impl_->threeD;
    sight.view = impl_->view;
    sight.turning = impl_->IsTurning() || (impl_->threeD && impl_->playing);
    sight.enabled = isEnabled();
    sight.textColor = owl::FromQColor(palette().color(QPalette::Active, QPalette::WindowText));
    sight.backColor = owl::FromQColor(palette().color(QPalette::Active, QPalette::Window));
    sight.pixelRatio = impl_->fineness.value_or(devicePixelRatioF());
    if (!erase) {
        dc.FillRect(sight.area, sight.backColor);
    }
    impl_->seen = PaintMap(dc, impl_->platform, impl_->data, impl_->display, sight, impl_->fields);
}

void TMapWindow::DrawInView(owl::TDC& dc, double fineness) {
    const owl::TRect place = isHidden() ? owl::TRect{} : owl::FromQRect(geometry());
    if (place.IsEmpty()) {
        return;
    }
    const QScopedValueRollback<std::optional<double>> fine(impl_->fineness, fineness);
    PartDC part(dc, place);
    owl::TRect whole = GetClientRect();
    Draw(part, true, whole);
}

void TMapWindow::changeEvent(QEvent* event) {
    TWindow::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) {
        Invalidate();
    }
}

void TMapWindow::EvSize(unsigned sizeType, const owl::TSize& size) {
    TWindow::EvSize(sizeType, size);
}

void TMapWindow::EvLButtonDown(unsigned modKeys, const owl::TPoint& point) {
    TWindow::EvLButtonDown(modKeys, point);
    impl_->press = Press{point, point};
}

void TMapWindow::EvMouseMove(unsigned modKeys, const owl::TPoint& point) {
    TWindow::EvMouseMove(modKeys, point);
    if ((modKeys & owl::kMkLButton) == 0) {
        EndPress(); // the release went to another window
    }
    if (!impl_->press) {
        ShowTip(point);
        return;
    }
    Press& press = *impl_->press;
    press.moved =
        press.moved || std::abs(point.x - press.from.x) > kStill || std::abs(point.y - press.from.y) > kStill;
    if (impl_->IsTurning()) {
        const owl::TRect area = GetClientRect();
        impl_->view = Dragged(impl_->view, point.x - press.at.x, point.y - press.at.y,
                              std::min(area.Width(), area.Height()));
        press.at = point;
        Invalidate();
    }
}

void TMapWindow::EvLButtonUp(unsigned modKeys, const owl::TPoint& point) {
    TWindow::EvLButtonUp(modKeys, point);
    const bool clicked = impl_->press && !impl_->press->moved;
    EndPress();
    if (const auto electrode = clicked ? ElectrodeAt(point) : std::nullopt) {
        TellParent(kElectrodeClicked, static_cast<LPARAM>(*electrode));
    }
}

void TMapWindow::EndPress() {
    const bool turned = impl_->IsTurning();
    impl_->press.reset();
    if (turned) {
        Invalidate(); // finer
        TellParent(kTurned, 0);
    }
}

void TMapWindow::EvLButtonDblClk(unsigned modKeys, const owl::TPoint& point) {
    TWindow::EvLButtonDblClk(modKeys, point);
}

void TMapWindow::TellParent(unsigned message, LPARAM second) {
    if (auto* parent = dynamic_cast<owl::TWindow*>(parentWidget())) {
        parent->SendMessage(message, static_cast<WPARAM>(impl_->index), second);
    }
}

/// Name, value and unit of the electrode under the mouse; elsewhere a title that is cut.
void TMapWindow::ShowTip(const owl::TPoint& point) {
    const auto electrode = ElectrodeAt(point);
    const MapData& map = impl_->data;
    std::string text = impl_->display.fit.titles.whole ? "" : map.title;
    if (electrode) {
        text = map.electrodes[*electrode].Name + ": " +
               NumberText(impl_->platform, map.ValueOf(*electrode), DecimalsFor(ScaleOf(map)));
        text += map.IsUsed(*electrode) && !map.unit.empty() ? " " + map.unit : "";
    }
    setToolTip(QString::fromStdString(text));
    if (electrode) {
        setCursor(Qt::PointingHandCursor); // a click leads to its channel
    } else {
        unsetCursor();
    }
}
