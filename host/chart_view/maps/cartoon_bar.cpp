// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/cartoon_bar.h"

#include "host/toolkit/event_guard.h"
#include "host/toolkit/form_texts.h"
#include "host/toolkit/icon.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/qt_painting.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSlider>
#include <QToolButton>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace orvanta::chart {

namespace {

constexpr int kNarrowestSlider = 80;

QString Text(const char* key, const char* builtIn) {
    return owl::ToQString(owl::TextOr(PModule::Named("Orvanta"), "CARTOON", key, builtIn));
}

/// Whole tenths of a second.
QString ClockText(const XTime& time) {
    constexpr std::int64_t kTenth = 100'000'000;
    constexpr std::int64_t kMinute = 600;
    constexpr std::int64_t kHour = 36'000;
    const std::int64_t tenths = std::abs(time.Nanoseconds()) / kTenth;
    return QString("%1%2:%3:%4.%5")
        .arg(time.Nanoseconds() <= -kTenth ? "-" : "")
        .arg(tenths / kHour)
        .arg(tenths % kHour / kMinute, 2, 10, QChar('0'))
        .arg(tenths % kMinute / 10, 2, 10, QChar('0'))
        .arg(tenths % 10);
}

/// A slider counts in int; no cartoon has more epochs than that in practice, and one that has ends there.
int ToSlider(std::uint64_t epoch) {
    return static_cast<int>(std::min<std::uint64_t>(epoch, std::numeric_limits<int>::max()));
}

} // namespace

QString EpochText(const CartoonState& state) {
    if (state.count == 0) {
        return Text("none", "No epochs");
    }
    const std::uint64_t end = std::min(state.first + std::max<std::uint64_t>(1, state.length), state.count);
    return end - state.first == 1
               ? Text("epoch", "Epoch %1 of %2").arg(state.first + 1).arg(state.count)
               : Text("epochs", "Epochs %1–%2 of %3").arg(state.first + 1).arg(end).arg(state.count);
}

QString TimeText(const std::optional<XTimeInterval>& time) {
    return time ? ClockText(*time->GetBeginPtr()) + " – " + ClockText(*time->GetEndPtr()) : QString();
}

CartoonBar::CartoonBar(QWidget* parent, Requests requests) : QWidget(parent), requests_(std::move(requests)) {
    setObjectName("cartoonBar");
    setAutoFillBackground(true);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 4);
    row->setSpacing(4);
    auto* leafBack = AddButton("cartoonLeafBack", "cartoon_leaf_back", "leafBack",
                               "Back by all maps (Page Up)", [this] { requests_.leaf(-1); });
    auto* back = AddButton("cartoonBack", "cartoon_back", "back", "Previous epoch (Left)",
                           [this] { requests_.step(-1); });
    play_ =
        AddButton("cartoonPlay", "cartoon_play", "play", "Play (Space)", [this] { requests_.playOrPause(); });
    auto* forward = AddButton("cartoonForward", "cartoon_forward", "forward", "Next epoch (Right)",
                              [this] { requests_.step(1); });
    auto* leafForward = AddButton("cartoonLeafForward", "cartoon_leaf_forward", "leafForward",
                                  "Forward by all maps (Page Down)", [this] { requests_.leaf(1); });
    slider_ = new QSlider(Qt::Horizontal, this);
    slider_->setObjectName("cartoonSlider");
    slider_->setFocusPolicy(Qt::TabFocus);
    slider_->setAccessibleName(Text("slider", "Epoch of the first map"));
    slider_->setMinimumWidth(kNarrowestSlider);
    connect(slider_, &QSlider::valueChanged, this, [this](int value) {
        owl::RunGuarded([&] { requests_.show(static_cast<std::uint64_t>(value)); });
    });
    row->addWidget(slider_, 1);
    where_ = new QLabel(this);
    where_->setObjectName("cartoonWhere");
    row->addSpacing(4);
    row->addWidget(where_);
    row->addSpacing(4);
    speed_ = new QComboBox(this);
    speed_->setObjectName("cartoonSpeed");
    speed_->setFocusPolicy(Qt::TabFocus);
    speed_->setAccessibleName(Text("speed", "Steps per second"));
    speed_->setToolTip(speed_->accessibleName());
    for (const int speed : kSpeeds) {
        speed_->addItem(Text("perSecond", "%1 per s").arg(speed), speed);
    }
    connect(speed_, &QComboBox::currentIndexChanged, this,
            [this] { owl::RunGuarded([&] { requests_.changed(); }); });
    row->addWidget(speed_);
    loop_ = AddButton("cartoonLoop", "cartoon_loop", "loop", "Begin again at the end",
                      [this] { requests_.changed(); });
    loop_->setCheckable(true);
    moving_ = {leafBack, back, play_, forward, leafForward, slider_};
    Show({});
}

QToolButton* CartoonBar::AddButton(const char* name, const char* icon, const char* key, const char* tip,
                                   std::function<void()> request) {
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setIcon(owl::IconOf(QString(icon)));
    button->setToolTip(Text(key, tip));
    button->setAccessibleName(button->toolTip());
    connect(button, &QToolButton::clicked, this,
            [request = std::move(request)] { owl::RunGuarded(request); });
    layout()->addWidget(button);
    return button;
}

void CartoonBar::Show(const CartoonState& state) {
    state_ = state;
    const QSignalBlocker silent(slider_);
    slider_->setRange(0, ToSlider(state.last));
    slider_->setPageStep(ToSlider(std::max<std::uint64_t>(1, state.length)));
    slider_->setValue(ToSlider(state.first));
    for (QWidget* control : moving_) {
        control->setEnabled(state.last > 0);
    }
    slider_->setToolTip(Where());
    Fit();
    play_->setIcon(owl::IconOf(QString(state.playing ? "cartoon_pause" : "cartoon_play")));
    play_->setToolTip(state.playing ? Text("pause", "Pause (Space)") : Text("play", "Play (Space)"));
    play_->setAccessibleName(play_->toolTip());
}

QString CartoonBar::Where() const {
    return (EpochText(state_) + "   " + TimeText(state_.time)).trimmed();
}

int CartoonBar::Speed() const {
    return speed_->currentData().toInt();
}

void CartoonBar::SetSpeed(int stepsPerSecond) {
    const QSignalBlocker silent(speed_);
    speed_->setCurrentIndex(std::max(0, speed_->findData(stepsPerSecond)));
}

bool CartoonBar::Loops() const {
    return loop_->isChecked();
}

void CartoonBar::SetLoops(bool loops) {
    loop_->setChecked(loops);
}

QSize CartoonBar::sizeHint() const {
    return layout()->sizeHint();
}

void CartoonBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Fit();
}

void CartoonBar::Fit() {
    SayWhere(true);
    // What is left out first stands first.
    QWidget* const spare[] = {loop_, speed_, where_};
    for (QWidget* control : spare) {
        control->show();
    }
    const auto tooWide = [this] { return layout()->minimumSize().width() > width(); };
    if (tooWide()) {
        SayWhere(false);
    }
    for (QWidget* control : spare) {
        control->setVisible(!tooWide());
    }
}

void CartoonBar::SayWhere(bool withTime) {
    const auto text = [withTime](const CartoonState& state) {
        return withTime ? EpochText(state) + "   " + TimeText(state.time) : EpochText(state);
    };
    CartoonState last = state_;
    last.first = state_.last;
    last.time = state_.lastTime;
    where_->setText(text(state_).trimmed());
    const int widest = where_->fontMetrics().horizontalAdvance(text(last).trimmed());
    where_->setMinimumWidth(std::max(widest, where_->fontMetrics().horizontalAdvance(where_->text())) + 1);
}

} // namespace orvanta::chart
