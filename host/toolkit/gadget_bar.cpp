// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/gadget_bar.h"

#include "host/toolkit/event_guard.h"
#include "host/toolkit/event_handler.h"
#include "host/toolkit/icon.h"
#include "host/toolkit/idle_enablers.h"

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLayout>
#include <QSlider>

namespace owl {

namespace {

constexpr int kIconSize = 20;
constexpr int kGapWidth = 6;
constexpr int kSpacing = 2;
constexpr int kTextPadding = 3;
constexpr int kSliderEnd = 100;
constexpr int kSliderTick = 10;
constexpr QSize kSliderSize(100, 20);

void Describe(QWidget& widget, const std::string& tip) {
    widget.setToolTip(QString::fromStdString(tip));
    widget.setAccessibleName(QString::fromStdString(tip));
}

/// With room for so many wide characters in whatever font it has.
class TextField final : public QLabel {
public:
    TextField(int characters, QWidget* parent) : QLabel(parent), characters_(characters) {
        setFrameStyle(QFrame::Panel | QFrame::Sunken);
        setAlignment(Qt::AlignCenter);
        setTextFormat(Qt::PlainText);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override { return QLabel::sizeHint().expandedTo(Room()); }
    QSize minimumSizeHint() const override { return sizeHint(); }

private:
    QSize Room() const {
        const int around = 2 * (frameWidth() + kTextPadding);
        return {characters_ * fontMetrics().horizontalAdvance('M') + around, fontMetrics().height() + around};
    }

    int characters_;
};

} // namespace

TwoStateButton::TwoStateButton(QWidget* parent) : QToolButton(parent) {
    setCheckable(true);
}

GadgetBar::GadgetBar(TEventHandler& handler, QWidget* parent)
    : QToolBar(parent), handler_(handler), enablers_(new IdleEnablers(handler, this)) {
    setIconSize({kIconSize, kIconSize});
    setMovable(false);
    layout()->setSpacing(kSpacing);
}

void GadgetBar::Equip(QToolButton& button, unsigned command, const std::string& tip) {
    Describe(button, tip);
    button.setIconSize(iconSize());
    button.setAutoRaise(true);
    connect(&button, &QToolButton::clicked, this,
            [this, command] { RunGuarded([&] { handler_.RunCommand(command); }); });
    enablers_->Add(command, button);
    addWidget(&button);
}

QToolButton* GadgetBar::AddButton(unsigned command, unsigned icon, const std::string& tip) {
    auto* button = new QToolButton(this);
    button->setIcon(IconOf(icon));
    Equip(*button, command, tip);
    return button;
}

TwoStateButton* GadgetBar::AddTwoStateButton(unsigned command, unsigned upIcon, unsigned downIcon,
                                             const std::string& tip) {
    auto* button = new TwoStateButton(this);
    button->setIcon(IconOf(upIcon, downIcon));
    Equip(*button, command, tip);
    return button;
}

QWidget* GadgetBar::AddGap() {
    auto* gap = new QFrame(this);
    gap->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    gap->setFixedWidth(kGapWidth);
    addWidget(gap);
    return gap;
}

void GadgetBar::AddControl(QWidget& control) {
    addWidget(&control);
}

void GadgetBar::Send(unsigned message, int value) {
    RunGuarded([&] {
        handler_.Dispatch({{EventKind::Message, message}, MessageArgs{static_cast<WPARAM>(value), 0}});
    });
}

QComboBox* GadgetBar::AddComboBox(unsigned message, const std::string& tip) {
    auto* box = new QComboBox(this);
    Describe(*box, tip);
    box->setFocusPolicy(Qt::TabFocus);
    box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    connect(box, &QComboBox::activated, this, [this, message](int index) { Send(message, index); });
    AddControl(*box);
    return box;
}

QSlider* GadgetBar::AddSlider(unsigned message, int position, const std::string& tip) {
    auto* slider = new QSlider(Qt::Horizontal, this);
    Describe(*slider, tip);
    slider->setFocusPolicy(Qt::TabFocus);
    slider->setRange(0, kSliderEnd);
    slider->setValue(position);
    slider->setPageStep(kSliderTick);
    slider->setTickInterval(kSliderTick);
    slider->setTickPosition(QSlider::TicksBelow);
    slider->setFixedSize(kSliderSize);
    connect(slider, &QSlider::valueChanged, this, [this, message](int value) { Send(message, value); });
    AddControl(*slider);
    return slider;
}

QLabel* GadgetBar::AddText(int characters) {
    auto* text = new TextField(characters, this);
    AddControl(*text);
    return text;
}

} // namespace owl
