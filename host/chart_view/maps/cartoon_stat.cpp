// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/cartoon_stat.h"

#include "host/chart_view/maps/cartoon_bar.h"
#include "host/chart_view/maps/epoch_steps.h"
#include "host/toolkit/event_guard.h"
#include "host/toolkit/services.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QScopeGuard>
#include <QTimer>

#include <algorithm>
#include <cstdlib>
#include <utility>

using namespace orvanta::chart;

namespace {

constexpr unsigned kVkSpace = 0x20;
constexpr unsigned kVkPageUp = 0x21;
constexpr unsigned kVkPageDown = 0x22;
constexpr unsigned kVkEnd = 0x23;
constexpr unsigned kVkHome = 0x24;
constexpr unsigned kVkLeft = 0x25;
constexpr unsigned kVkRight = 0x27;

constexpr int kDefaultSpeed = 5;

/// Comes back once what was to be drawn before has been drawn.
QEvent::Type DrawnEvent() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

int RepairedSpeed(int speed) {
    return std::ranges::find(kSpeeds, speed) != std::end(kSpeeds) ? speed : kDefaultSpeed;
}

} // namespace

struct CartoonStat::Impl {
    const owl::Clock& clock = *owl::CurrentServices().clock;
    MapSource* source = nullptr;
    XTimeList list;   ///< of all epochs
    EpochSteps steps; ///< the same
    std::uint64_t first = 0;
    bool enabled = false;
    bool busy = false; ///< values are being fetched or updated
    std::optional<Playing> playing;
    QTimer timer;
    QPointer<CartoonBar> bar;
};

constinit const owl::TResponseTable CartoonStat::__entries = {
    owl::On<owl::WindowEvent::SetFocus, &CartoonStat::EvSetFocus>(),
    owl::On<owl::WindowEvent::KeyDown, &CartoonStat::EvKeyDown>(),
};

const owl::TResponseEntry* CartoonStat::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<MultiMapWin>(__entries, *this, key);
}

CartoonStat::CartoonStat(GlobalWindow& window, bool threeD, const std::vector<ElectInfo>& electrodes,
                         std::string name, PModule* module, const ChildResInfo& resources)
    : MultiMapWin(window, threeD, electrodes, std::move(name), module, resources),
      impl_(std::make_unique<Impl>()) {
    impl_->timer.setSingleShot(true);
    impl_->timer.setTimerType(Qt::PreciseTimer);
    connect(&impl_->timer, &QTimer::timeout, this, [this] { Tick(); });
    impl_->bar = new CartoonBar(this, {.playOrPause = [this] { IsPlaying() ? Pause() : Play(); },
                                       .step = [this](int steps) { StepBy(steps); },
                                       .leaf = [this](int windows) { StepBy(windows * GetNumMaps()); },
                                       .show = [this](std::uint64_t step) { StepTo(step); },
                                       .changed =
                                           [this] {
                                               if (IsPlaying()) {
                                                   Play(); // from here at the other speed
                                               }
                                           }});
    impl_->bar->hide();
    SetLowerBar(impl_->bar);
}

CartoonStat::~CartoonStat() = default;

void CartoonStat::LoadUserSettings() {
    MultiMapWin::LoadUserSettings();
    impl_->bar->SetSpeed(RepairedSpeed(ReadChildInt("CartoonSpeed", kDefaultSpeed)));
    impl_->bar->SetLoops(ReadChildInt("CartoonLoop", 0) != 0);
}

void CartoonStat::Destroy(int retVal) {
    Pause();
    MultiMapWin::Destroy(retVal);
}

void CartoonStat::StoreUserSettings() const {
    MultiMapWin::StoreUserSettings();
    if (impl_->bar) {
        WriteChildInt("CartoonSpeed", impl_->bar->Speed());
        WriteChildInt("CartoonLoop", impl_->bar->Loops() ? 1 : 0);
    }
}

void CartoonStat::SetSource(MapSource* source) {
    impl_->source = source;
}

void CartoonStat::EnableCartoon(bool on) {
    Pause();
    impl_->enabled = on;
    impl_->first = 0;
    impl_->bar->setVisible(on);
    if (!on) {
        SetFixedRange({});
        SetMapsInUse({});
    }
    SetWholeRect();
    ShowState();
}

bool CartoonStat::HaveMapsOwnOptions() const {
    return !impl_->enabled; // the epochs show one and the same
}

std::uint64_t CartoonStat::GetStepCount() const {
    return impl_->enabled ? impl_->steps.Count() : 0;
}

std::uint64_t CartoonStat::GetFirstStep() const {
    return impl_->enabled ? impl_->first : 0;
}

void CartoonStat::SetMapValues(bool fetch) {
    if (impl_->source == nullptr) {
        MultiMapWin::SetMapValues(fetch);
        return;
    }
    if (impl_->busy) {
        return; // the running one shows what is newest
    }
    const QPointer<CartoonStat> alive(this);
    impl_->busy = true;
    const auto done = qScopeGuard([&] {
        if (alive) {
            impl_->busy = false;
        }
    });
    if (fetch) {
        ComputeAllMapsValues();
    }
    std::optional<XTimeList> list = alive ? impl_->source->Fetch() : std::nullopt;
    if (!alive || !IsCreated() || !list) {
        return;
    }
    const std::optional<ValueRange> range = impl_->enabled ? impl_->source->CartoonRange() : std::nullopt;
    if (!alive || !IsCreated()) {
        return;
    }
    impl_->steps = EpochSteps(*list);
    impl_->list = std::move(*list);
    impl_->first = std::min(impl_->first, impl_->steps.LastStart(GetNumMaps()));
    SetFixedRange(range);
    UpdateStretch();
}

void CartoonStat::UpdateStretch() {
    const QPointer<CartoonStat> alive(this);
    if (impl_->enabled) {
        const std::uint64_t seen = std::min<std::uint64_t>(impl_->steps.Count(), GetNumMaps());
        SetMapsInUse(std::max<std::uint64_t>(1, seen));
        for (std::size_t i = 0; i < GetNumMaps(); ++i) {
            SetMapUnit(i, "");
        }
        UpdateMapsOrKeep(impl_->steps.Stretch(impl_->first, GetNumMaps()));
    } else {
        SetMapsInUse({});
        UpdateMapsOrKeep(impl_->list);
    }
    if (alive && IsCreated()) {
        PushMaps();
        ShowState();
    }
}

void CartoonStat::MoveTo(std::uint64_t step) {
    const std::uint64_t to = std::min(step, impl_->steps.LastStart(GetNumMaps()));
    if (!impl_->enabled || impl_->busy || to == impl_->first) {
        return;
    }
    const QPointer<CartoonStat> alive(this);
    const std::uint64_t from = std::exchange(impl_->first, to);
    impl_->busy = true;
    auto back = qScopeGuard([&] {
        if (alive) {
            impl_->first = from;
        }
    });
    const auto done = qScopeGuard([&] {
        if (alive) {
            impl_->busy = false;
        }
    });
    UpdateStretch();
    back.dismiss();
}

void CartoonStat::ShowStep(std::uint64_t step) {
    MoveTo(step);
    if (impl_->playing) {
        impl_->playing->from = impl_->first; // goes on from there
        impl_->playing->since = impl_->clock.Milliseconds();
    }
}

void CartoonStat::StepTo(std::uint64_t step) {
    const QPointer<CartoonStat> alive(this);
    const auto whole = qScopeGuard([&] {
        if (alive) {
            ShowState(); // the slider is where the maps are
        }
    });
    ShowStep(step);
}

void CartoonStat::StepBy(std::int64_t steps) {
    const std::uint64_t first = impl_->first;
    const auto distance = static_cast<std::uint64_t>(std::abs(steps));
    StepTo(steps >= 0 ? first + distance : first - std::min(first, distance));
}

bool CartoonStat::IsPlaying() const {
    return impl_->playing.has_value();
}

void CartoonStat::Play() {
    const std::uint64_t last = impl_->steps.LastStart(GetNumMaps());
    if (!impl_->enabled || last == 0 || !IsCreated()) {
        return;
    }
    if (!IsPlaying() && impl_->first == last) {
        MoveTo(0);
    }
    impl_->playing = {impl_->first, impl_->clock.Milliseconds(), impl_->bar->Speed()};
    HurryMaps();
    AwaitStep();
    ShowState();
}

void CartoonStat::HurryMaps() {
    for (std::size_t i = 0; i < GetNumMaps(); ++i) {
        if (TMapWindow* const map = GetMap(i)) {
            map->SetPlaying(IsPlaying());
        }
    }
}

void CartoonStat::Pause() {
    if (!impl_->playing) {
        return;
    }
    impl_->timer.stop();
    impl_->playing.reset();
    HurryMaps();
    ShowState();
}

void CartoonStat::AwaitStep() {
    if (!impl_->playing) {
        return;
    }
    const std::int64_t now = impl_->clock.Milliseconds();
    const std::uint64_t last = impl_->steps.LastStart(GetNumMaps());
    const bool late = impl_->playing->At(now, last, impl_->bar->Loops()) != impl_->first;
    // Also when it is late through a timer, so that input comes first.
    impl_->timer.start(late && !impl_->busy ? 1 : static_cast<int>(impl_->playing->Wait(now)));
}

void CartoonStat::Tick() {
    if (!impl_->playing || impl_->busy) {
        AwaitStep();
        return;
    }
    const std::uint64_t last = impl_->steps.LastStart(GetNumMaps());
    const auto due = impl_->playing->At(impl_->clock.Milliseconds(), last, impl_->bar->Loops());
    const QPointer<CartoonStat> alive(this);
    owl::RunGuarded([&] {
        auto over = qScopeGuard([&] {
            if (alive) {
                Pause();
            }
        });
        MoveTo(due.value_or(last));
        if (due) {
            over.dismiss();
        }
    });
    // The next step waits until this one is drawn: slow drawing passes steps over, none queues.
    if (alive && impl_->playing) {
        QCoreApplication::postEvent(this, new QEvent(DrawnEvent()), Qt::LowEventPriority);
    }
}

void CartoonStat::customEvent(QEvent* event) {
    if (event->type() == DrawnEvent()) {
        AwaitStep();
        return;
    }
    MultiMapWin::customEvent(event);
}

void CartoonStat::hideEvent(QHideEvent* event) {
    MultiMapWin::hideEvent(event);
    Pause();
}

void CartoonStat::ShowState() {
    if (!impl_->bar) {
        return;
    }
    const std::uint64_t length = GetNumMaps();
    const std::uint64_t last = impl_->steps.LastStart(length);
    impl_->bar->Show({.count = impl_->steps.Count(),
                      .first = impl_->first,
                      .length = length,
                      .last = last,
                      .time = impl_->steps.Time(impl_->first, length),
                      .lastTime = impl_->steps.Time(last, length),
                      .playing = IsPlaying()});
    setAccessibleDescription(impl_->enabled ? impl_->bar->Where() : QString());
}

void CartoonStat::ResetWindows(std::uint16_t rows, std::uint16_t columns) {
    const QPointer<CartoonStat> alive(this);
    MultiMapWin::ResetWindows(rows, columns);
    if (alive) {
        impl_->first = std::min(impl_->first, impl_->steps.LastStart(GetNumMaps()));
        HurryMaps();
        ShowState();
    }
}

void CartoonStat::EvSetFocus(HWND lost) {
    MultiMapWin::EvSetFocus(lost);
}

void CartoonStat::EvKeyDown(unsigned key, unsigned repeat, unsigned flags) {
    if (!impl_->enabled) {
        MultiMapWin::EvKeyDown(key, repeat, flags);
        return;
    }
    const std::int64_t leaf = GetNumMaps();
    switch (key) {
    case kVkSpace:
        IsPlaying() ? Pause() : Play();
        break;
    case kVkLeft:
        StepBy(-1);
        break;
    case kVkRight:
        StepBy(1);
        break;
    case kVkPageUp:
        StepBy(-leaf);
        break;
    case kVkPageDown:
        StepBy(leaf);
        break;
    case kVkHome:
        StepTo(0);
        break;
    case kVkEnd:
        StepTo(impl_->steps.LastStart(GetNumMaps()));
        break;
    default:
        MultiMapWin::EvKeyDown(key, repeat, flags);
    }
}
